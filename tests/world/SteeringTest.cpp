// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the player's turn requests do to the ship.
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using test::IsExactly;
using test::IsNear;
using test::ScopedSetting;

constexpr float kPi = 3.1415927F;

class SteeringTest : public Stage
{
protected:
    SteeringTest() : m_ship(*m_world->GetCamera()) { Lay(); }

    void Lay()
    {
        test::LayShip(m_ship, {-50.0F, -50.0F, -50.0F});
        m_ship.SetMaxRotation(0.1F);
    }

    TQ3Vector3D FacingAfter(double seconds)
    {
        m_world->Tick(seconds);
        TQ3Vector3D facing;
        m_ship.GetFacingNormal(&facing);
        return facing;
    }

    std::unique_ptr<Universe> m_world = test::EmptyWorld();
    Camera& m_ship;
};

TEST_F(SteeringTest, FullTurnTakesTenSeconds)
{
    m_world->PlayerWantsToTurn(1.0F, 0.0F);
    EXPECT_FLOAT_EQ(m_ship.GetRotationRate(), 2.0F * kPi * 0.1F);
    EXPECT_THAT(FacingAfter(2.5), IsNear(1.0F, 0.0F, 0.0F, 1e-5F)); // a quarter turn to the right
}

TEST_F(SteeringTest, UpTurnsAboutTheShipsOwnRightHand)
{
    m_world->PlayerWantsToTurn(0.0F, 1.0F);
    EXPECT_THAT(m_ship.GetRotationAxis(), IsNear(1.0F, 0.0F, 0.0F, 1e-6F));
    EXPECT_THAT(FacingAfter(2.5), IsNear(0.0F, 1.0F, 0.0F, 1e-5F));
    EXPECT_THAT(m_ship.GetUp(), IsNear(0.0F, 0.0F, 1.0F, 1e-5F));
}

TEST_F(SteeringTest, TurnsInTheShipsOwnFrame)
{
    m_world->PlayerWantsToTurn(1.0F, 0.0F);
    FacingAfter(2.5); // facing +x now, with y up
    m_world->PlayerWantsToTurn(1.0F, 0.0F);
    EXPECT_THAT(FacingAfter(2.5), IsNear(0.0F, 0.0F, 1.0F, 1e-5F));
}

TEST_F(SteeringTest, BothAxesAtOnceTurnFaster)
{
    m_world->PlayerWantsToTurn(0.6F, 0.8F);
    EXPECT_FLOAT_EQ(m_ship.GetRotationRate(), 2.0F * kPi * 0.1F);
    m_world->PlayerWantsToTurn(3.0F, 4.0F);
    EXPECT_FLOAT_EQ(m_ship.GetRotationRate(), 2.0F * kPi * 0.5F);
}

TEST_F(SteeringTest, SmallWishStopsTheTurn)
{
    m_world->PlayerWantsToTurn(1.0F, 0.0F);
    m_world->PlayerWantsToTurn(0.005F, 0.0F);
    EXPECT_EQ(m_ship.GetRotationRate(), 0.0F);
    EXPECT_THAT(m_ship.GetRotationAxis(), IsExactly(0.0F, 0.0F, 0.0F));
    EXPECT_THAT(FacingAfter(1.0), IsNear(0.0F, 0.0F, -1.0F, 1e-6F));
}

TEST_F(SteeringTest, InvertedMouseTurnsDownForUp)
{
    ScopedSetting const invert(setting::kMouseInvert, 1);
    auto const world = test::EmptyWorld();
    test::LayShip(*world->GetCamera(), {-50.0F, -50.0F, -50.0F});
    world->PlayerWantsToTurn(0.0F, 1.0F);
    EXPECT_THAT(world->GetCamera()->GetRotationAxis(), IsNear(-1.0F, 0.0F, 0.0F, 1e-6F));
    world->PlayerWantsToTurn(1.0F, 0.0F);
    EXPECT_THAT(world->GetCamera()->GetRotationAxis(), IsNear(0.0F, -1.0F, 0.0F, 1e-6F));
}

TEST_F(SteeringTest, InversionIsReadWhenTheWorldIsBuilt)
{
    ScopedSetting const invert(setting::kMouseInvert, 1);
    m_world->PlayerWantsToTurn(0.0F, 1.0F);
    EXPECT_THAT(m_ship.GetRotationAxis(), IsNear(1.0F, 0.0F, 0.0F, 1e-6F));
}

} // namespace
