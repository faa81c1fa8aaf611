// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Camera.h"

#include "support/gl/RecordingGL.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using recording::call;
using test::IsExactly;
using test::IsNear;

constexpr float kPi = 3.1415927F;

class CameraTest : public Stage
{
protected:
    CameraTest() : m_camera(m_world.get())
    {
        m_camera.SetMinMaxVelocity(0.0F, 4.0F);
        m_camera.SetMaxAcceleration(0.5F);
    }

    std::unique_ptr<Universe> m_world = test::EmptyWorld();
    Camera m_camera;
};

TEST_F(CameraTest, StartsOnTheZAxisLookingAtTheOrigin)
{
    Camera const camera(m_world.get());
    EXPECT_THAT(camera.GetPosition(), IsExactly(0.0F, 0.0F, 40.0F));
    EXPECT_THAT(camera.GetLookAt(), IsExactly(0.0F, 0.0F, 0.0F));
    EXPECT_THAT(camera.GetUp(), IsExactly(0.0F, 1.0F, 0.0F));
    EXPECT_EQ(camera.GetMaxAcceleration(), 0.1F);
    EXPECT_EQ(camera.GetTargetVPct(), 0.0F);
    EXPECT_EQ(camera.GetMaxRotation(), 0.1F);
}

TEST_F(CameraTest, SettingDecidesTheDiameterButNotTheRadius)
{
    test::ScopedSetting const size(setting::kPlayerSize, 0.7F);
    Camera const camera(m_world.get());
    EXPECT_EQ(camera.GetRadius(), 0.1F);
    EXPECT_EQ(camera.GetDiameter(), 1.4F);
}

TEST_F(CameraTest, FacingNormalHasUnitLength)
{
    TQ3Vector3D facing;
    m_camera.GetFacingNormal(&facing); // the facing point lies 40 units ahead
    EXPECT_THAT(facing, IsExactly(0.0F, 0.0F, -1.0F));
}

TEST_F(CameraTest, TurnToFaceTurnsTheUpVectorAlong)
{
    m_camera.TurnToFace(0.0F, 10.0F, 40.0F);
    EXPECT_THAT(m_camera.GetUp(), IsNear(0.0F, 0.0F, 1.0F, 1e-6F));
}

TEST_F(CameraTest, FullDeflectionIsTheGreatestTurnRate)
{
    m_camera.SetMaxRotation(0.25F);
    m_camera.SetRotationRate({0.0F, 1.0F, 0.0F}, 1.0F);
    EXPECT_FLOAT_EQ(m_camera.GetRotationRate(), 2.0F * kPi * 0.25F);
    EXPECT_THAT(m_camera.GetRotationAxis(), IsExactly(0.0F, 1.0F, 0.0F));
    m_camera.SetRotationRate({0.0F, 1.0F, 0.0F}, 0.5F);
    EXPECT_FLOAT_EQ(m_camera.GetRotationRate(), kPi * 0.25F);
}

TEST_F(CameraTest, LookAtReplacesTheMatrixByTheViewFromTheShip)
{
    test::LayShip(m_camera, {1.0F, 2.0F, 3.0F});
    EXPECT_THAT(recording::during([&] { m_camera.LookAt(); }),
                testing::ElementsAre(call("glLoadIdentity"), call("gluLookAt", {1, 2, 3, 1, 2, 2, 0, 1, 0})));
}

TEST_F(CameraTest, ChasesItsTargetSpeedWithTheGreatestAcceleration)
{
    m_camera.SetTargetVPct(0.5F);
    m_camera.Tick(1.0);
    EXPECT_EQ(m_camera.GetAccel(), 0.5F);
    EXPECT_EQ(m_camera.GetSpeed(), 0.5F);
    m_camera.SetTargetVPct(0.0F);
    m_camera.Tick(0.5);
    EXPECT_EQ(m_camera.GetAccel(), -0.5F);
    EXPECT_EQ(m_camera.GetSpeed(), 0.25F);
}

TEST_F(CameraTest, DoesNotAccelerateAtItsTargetSpeed)
{
    m_camera.SetTargetVPct(0.5F);
    m_camera.SetVelocity(2.0F);
    m_camera.Tick(1.0);
    EXPECT_EQ(m_camera.GetAccel(), 0.0F);
    EXPECT_EQ(m_camera.GetSpeed(), 2.0F);
}

TEST_F(CameraTest, HuntsAroundATargetThatItCannotMeet)
{
    m_camera.SetTargetVPct(0.15625F); // 0.625 units a second, between two steps of 0.25
    m_camera.SetVelocity(0.5F);
    m_camera.Tick(0.5);
    EXPECT_EQ(m_camera.GetSpeed(), 0.75F);
    m_camera.Tick(0.5);
    EXPECT_EQ(m_camera.GetSpeed(), 0.5F);
    m_camera.Tick(0.5);
    EXPECT_EQ(m_camera.GetSpeed(), 0.75F);
}

TEST_F(CameraTest, ThrottleBeyondFullDoesNotExceedTheGreatestSpeed)
{
    m_camera.SetTargetVPct(2.0F);
    EXPECT_EQ(m_camera.GetTargetVPct(), 2.0F);
    m_camera.SetVelocity(3.9F);
    m_camera.Tick(1.0);
    EXPECT_EQ(m_camera.GetSpeed(), 4.0F);
}

TEST_F(CameraTest, UpVectorFollowsTheTurn)
{
    test::LayShip(m_camera, {0.0F, 0.0F, 0.0F});
    m_camera.SetMaxRotation(0.25F);
    m_camera.SetRotationRate({0.0F, 0.0F, 1.0F}, 1.0F);
    m_camera.Tick(1.0);
    EXPECT_THAT(m_camera.GetUp(), IsNear(-1.0F, 0.0F, 0.0F, 1e-6F));
}

TEST_F(CameraTest, ImpactCutsTheThrottle)
{
    auto const full = test::FullWorld(0.2F);
    Camera camera(full.get());
    test::LayShip(camera, {0.0F, 0.0F, -0.5F});
    camera.TurnToFace(0.0F, 0.0F, 0.0F); // a half turn, towards the asteroid of the origin
    camera.SetMinMaxVelocity(0.0F, 4.0F);
    camera.SetVelocity(2.0F);
    camera.SetTargetVPct(1.0F);
    EXPECT_TRUE(camera.Tick(0.25));
    EXPECT_EQ(camera.GetTargetVPct(), 0.0F);
    EXPECT_EQ(camera.GetSpeed(), 0.0F);
}

TEST_F(CameraTest, FreeFlightKeepsTheThrottle)
{
    m_camera.SetTargetVPct(0.75F);
    EXPECT_FALSE(m_camera.Tick(1.0));
    EXPECT_EQ(m_camera.GetTargetVPct(), 0.75F);
}

} // namespace
