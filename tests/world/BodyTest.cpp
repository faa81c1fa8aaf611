// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Body.h"

#include "support/FrozenSound.h"
#include "support/Stage.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using test::IsExactly;
using test::IsNear;
using test::IsQuaternion;
using test::IsQuaternionNear;

constexpr float kQuarterTurn = 1.5707964F;
constexpr float kRounding = 1e-6F;
constexpr TQ3Vector3D kYAxis{0.0F, 1.0F, 0.0F};

class BodyTest : public Stage
{
protected:
    void turnAQuarterAboutY()
    {
        m_body.SetRotationRate(kYAxis, 0.0F);
        m_body.SetRotation(kQuarterTurn);
    }

    Body m_body{nullptr};
};

TEST_F(BodyTest, StartsAtRestAtTheOriginFacingDownZ)
{
    Body const body(nullptr);
    EXPECT_EQ(body.GetRadius(), 0.1F);
    EXPECT_EQ(body.GetDiameter(), 0.2F);
    EXPECT_THAT(body.GetPosition(), IsExactly(0.0F, 0.0F, 0.0F));
    EXPECT_THAT(body.GetVelocity(), IsExactly(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(body.GetSpeed(), 0.0F);
    EXPECT_EQ(body.GetAccel(), 0.0F);
    EXPECT_EQ(body.GetMinVelocity(), 0.0F);
    EXPECT_EQ(body.GetMaxVelocity(), 1.0F);
    EXPECT_THAT(body.GetLookAt(), IsExactly(0.0F, 0.0F, -1.0F));
    EXPECT_THAT(body.GetRotation(), IsQuaternion(1.0F, 0.0F, 0.0F, 0.0F));
    EXPECT_THAT(body.GetRotationAxis(), IsExactly(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(body.GetRotationRate(), 0.0F);
}

TEST_F(BodyTest, PlacedAtAPointStillLooksWhereANewOneLooks)
{
    Body const body(nullptr, {1.0F, 2.0F, 3.0F});
    EXPECT_THAT(body.GetPosition(), IsExactly(1.0F, 2.0F, 3.0F));
    EXPECT_THAT(body.GetLookAt(), IsExactly(0.0F, 0.0F, -1.0F));
}

TEST_F(BodyTest, LastOneMadeDecidesTheUniverseOfAll)
{
    auto const world = test::EmptyWorld();
    Body const first(world.get());
    EXPECT_EQ(Body::m_puniverse, world.get());
    Body const second(nullptr);
    EXPECT_EQ(Body::m_puniverse, nullptr);
}

TEST_F(BodyTest, DefaultsKeepTheSpinAxis)
{
    m_body.SetRotationRate({1.0F, 2.0F, 3.0F}, 4.0F);
    m_body.SetDefaults();
    EXPECT_THAT(m_body.GetRotationAxis(), IsExactly(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(m_body.GetRotationRate(), 0.0F);
}

TEST_F(BodyTest, SizeIsARadius)
{
    m_body.SetSize(0.75F);
    EXPECT_EQ(m_body.GetRadius(), 0.75F);
    EXPECT_EQ(m_body.GetDiameter(), 1.5F);
}

TEST_F(BodyTest, SetPosLeavesTheFacingPointWhereItWas)
{
    turnAQuarterAboutY();
    TQ3Vector3D const before = m_body.GetLookAt();
    m_body.SetPos(5.0F, 6.0F, 7.0F);
    EXPECT_THAT(m_body.GetPosition(), IsExactly(5.0F, 6.0F, 7.0F));
    EXPECT_THAT(m_body.GetLookAt(), IsExactly(before.x, before.y, before.z));
}

TEST_F(BodyTest, MoveToAndTranslateCarryTheFacingPointAlong)
{
    m_body.MoveTo(5.0F, 6.0F, 7.0F);
    EXPECT_THAT(m_body.GetPosition(), IsExactly(5.0F, 6.0F, 7.0F));
    EXPECT_THAT(m_body.GetLookAt(), IsExactly(5.0F, 6.0F, 6.0F));
    m_body.Translate({1.0F, -1.0F, 0.5F});
    EXPECT_THAT(m_body.GetPosition(), IsExactly(6.0F, 5.0F, 7.5F));
    EXPECT_THAT(m_body.GetLookAt(), IsExactly(6.0F, 5.0F, 6.5F));
}

TEST_F(BodyTest, SpeedIsHeldWithinItsRange)
{
    m_body.SetMinMaxVelocity(0.5F, 2.0F);
    m_body.SetVelocity(1.25F);
    EXPECT_EQ(m_body.GetSpeed(), 1.25F);
    m_body.SetVelocity(0.25F);
    EXPECT_EQ(m_body.GetSpeed(), 0.5F);
    m_body.SetVelocity(3.0F);
    EXPECT_EQ(m_body.GetSpeed(), 2.0F);
}

TEST_F(BodyTest, MinimumSpeedWinsOverTheMaximum)
{
    m_body.SetMinMaxVelocity(3.0F, 1.0F);
    m_body.SetVelocity(2.0F);
    EXPECT_EQ(m_body.GetSpeed(), 3.0F);
}

TEST_F(BodyTest, VelocityPointsWhereTheBodyFaces)
{
    m_body.SetMinMaxVelocity(0.0F, 4.0F);
    turnAQuarterAboutY();
    m_body.SetVelocity(2.0F);
    // A quarter turn about y takes -z to -x.
    EXPECT_THAT(m_body.GetVelocity(), IsNear(-2.0F, 0.0F, 0.0F, kRounding));
}

TEST_F(BodyTest, SetRotationTurnsAboutTheSpinAxisAndKeepsTheFacingPointAhead)
{
    m_body.MoveTo(10.0F, 0.0F, 0.0F);
    turnAQuarterAboutY();
    EXPECT_THAT(m_body.GetRotation(), IsQuaternionNear(0.70710678F, 0.0F, 0.70710678F, 0.0F, kRounding));
    EXPECT_THAT(m_body.GetLookAt(), IsNear(9.0F, 0.0F, 0.0F, kRounding));
}

// A quarter about y, then one about z: -z turns to -x, and that to -y. The other order would end at -x.
TEST_F(BodyTest, TurnsAddUpAboutTheAxesOfTheWorld)
{
    turnAQuarterAboutY();
    m_body.SetRotationRate({0.0F, 0.0F, 1.0F}, 0.0F);
    m_body.SetRotation(kQuarterTurn);
    EXPECT_THAT(m_body.GetLookAt(), IsNear(0.0F, -1.0F, 0.0F, kRounding));
}

TEST_F(BodyTest, TurnToFaceLooksAtThePoint)
{
    m_body.TurnToFace(0.0F, 8.0F, 0.0F);
    EXPECT_THAT(m_body.GetLookAt(), IsNear(0.0F, 1.0F, 0.0F, kRounding));
}

// The arc from the old facing to the new replaces the rotation, so that a body that has turned before faces
// wrongly: from -x (turned) to +y is a quarter turn about -z, and that leaves -z where it is.
TEST_F(BodyTest, TurnToFaceReplacesTheRotation)
{
    m_body.TurnToFace(-5.0F, 0.0F, 0.0F);
    m_body.TurnToFace(0.0F, 5.0F, 0.0F);
    EXPECT_THAT(m_body.GetRotation(), IsQuaternionNear(0.70710678F, 0.0F, 0.0F, -0.70710678F, kRounding));
    EXPECT_THAT(m_body.GetLookAt(), IsNear(0.0F, 0.0F, -1.0F, kRounding));
}

TEST_F(BodyTest, SpheresThatTouchIntersect)
{
    m_body.SetSize(0.5F);
    EXPECT_TRUE(m_body.SphereIntersects({0.75F, 0.0F, 0.0F}, 0.25F));
    EXPECT_FALSE(m_body.SphereIntersects({0.7501F, 0.0F, 0.0F}, 0.25F));
    EXPECT_TRUE(m_body.SphereIntersects({0.0F, 0.1F, 0.0F}, 0.0F));
}

class BodyTickTest : public Stage
{
protected:
    // Moving at 2 units a second along x, towards the asteroids of a full field.
    Body MovingBody(TQ3Vector3D const& position)
    {
        Body body(m_world.get());
        body.SetMinMaxVelocity(0.0F, 4.0F);
        body.SetRotationRate(kYAxis, 0.0F);
        body.SetRotation(-kQuarterTurn);
        body.MoveTo(position);
        body.SetVelocity(2.0F);
        return body;
    }

    std::unique_ptr<Universe> m_world = test::FullWorld(0.2F);
};

TEST_F(BodyTickTest, MovesAlongItsFacing)
{
    Body body = MovingBody({-10.0F, -10.0F, -10.0F});
    EXPECT_FALSE(body.Tick(0.5));
    EXPECT_THAT(body.GetPosition(), IsNear(-9.0F, -10.0F, -10.0F, 1e-5F));
    EXPECT_THAT(body.GetLookAt(), IsNear(-8.0F, -10.0F, -10.0F, 1e-5F));
}

TEST_F(BodyTickTest, SpeedGrowsBeforeTheStepIsTaken)
{
    Body body = MovingBody({-10.0F, -10.0F, -10.0F});
    body.SetAccel(1.0F);
    body.Tick(0.5);
    EXPECT_EQ(body.GetSpeed(), 2.5F);
    EXPECT_NEAR(body.GetPosition().x, -8.75F, 1e-5F);
}

TEST_F(BodyTickTest, TurnComesBeforeTheStepToo)
{
    Body body = MovingBody({-10.0F, -10.0F, -10.0F});
    body.SetRotationRate(kYAxis, kQuarterTurn); // +x turns to -z
    body.Tick(1.0);
    EXPECT_THAT(body.GetPosition(), IsNear(-10.0F, -10.0F, -12.0F, 1e-5F));
}

TEST_F(BodyTickTest, StandingBodyOnlySpins)
{
    Body body = MovingBody({0.5F, 0.5F, 0.5F});
    body.SetVelocity(0.0F);
    body.SetRotationRate(kYAxis, kQuarterTurn);
    EXPECT_FALSE(body.Tick(1.0));
    EXPECT_THAT(body.GetPosition(), IsExactly(0.5F, 0.5F, 0.5F));
    EXPECT_THAT(body.GetLookAt(), IsNear(0.5F, 0.5F, -0.5F, kRounding));
}

TEST_F(BodyTickTest, NoTimeMeansNoStep)
{
    Body body = MovingBody({-0.31F, 0.0F, 0.0F}); // 0.01 from touching an asteroid
    EXPECT_FALSE(body.Tick(0.0));
    EXPECT_THAT(body.GetPosition(), IsExactly(-0.31F, 0.0F, 0.0F));
    EXPECT_EQ(body.GetSpeed(), 2.0F);
}

TEST_F(BodyTickTest, ImpactStopsTheBodyWhereItIs)
{
    Body body = MovingBody({-0.5F, 0.0F, 0.0F});
    body.SetAccel(0.5F);
    TQ3Vector3D const lookAt = body.GetLookAt();
    EXPECT_TRUE(body.Tick(0.25));
    EXPECT_THAT(body.GetPosition(), IsExactly(-0.5F, 0.0F, 0.0F));
    EXPECT_THAT(body.GetLookAt(), IsNear(lookAt.x, lookAt.y, lookAt.z, kRounding));
    EXPECT_EQ(body.GetSpeed(), 0.0F);
    EXPECT_THAT(body.GetVelocity(), IsExactly(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(body.GetAccel(), 0.0F);
}

TEST_F(BodyTickTest, BlockedBodyKeepsCrawlingAtMinimumSpeed)
{
    Body body = MovingBody({-0.5F, 0.0F, 0.0F});
    body.SetMinMaxVelocity(0.25F, 4.0F);
    EXPECT_TRUE(body.Tick(0.25));
    EXPECT_EQ(body.GetSpeed(), 0.25F);
}

TEST_F(BodyTickTest, ImpactIsHeard)
{
    Body body = MovingBody({-0.5F, 0.0F, 0.0F});
    frozen::Silence();
    body.Tick(0.25);
    EXPECT_TRUE(frozen::Plays("Wham.AIFF"));
    EXPECT_FALSE(frozen::Plays("Graze.AIFF"));
}

TEST_F(BodyTickTest, FreeStepIsSilent)
{
    Body body = MovingBody({-10.0F, 0.0F, 0.0F});
    frozen::Silence();
    body.Tick(0.25);
    EXPECT_FALSE(frozen::Plays("Wham.AIFF"));
}

} // namespace
