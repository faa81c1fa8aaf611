// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Course, clock and pause.
#include "core/Game.h"
#include "support/FrozenSound.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"
#include "ui/Menu.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Universe.h"
#include "world/Waypoint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using probe::TextOf;
using test::IsExactly;

class UniverseRaceTest : public Stage
{
protected:
    // Puts the ship to the current marker and lets a moment pass.
    void Touch()
    {
        m_world->GetCamera()->MoveTo(m_world->GetWaypoint()->GetPosition());
        m_world->Tick(0.001);
    }

    std::unique_ptr<Universe> m_world = test::EmptyWorld();
};

TEST_F(UniverseRaceTest, StartsAtTheFirstWaypoint)
{
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 0);
    EXPECT_THAT(m_world->GetWaypoint()->GetPosition(), IsExactly(-3.5F, -3.5F, -5.5F));
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetCounter()), "1/8");
    EXPECT_EQ(m_world->GetWaypoint()->GetRadius(), 0.6F);
}

TEST_F(UniverseRaceTest, TouchMovesTheMarkerToTheNextWaypoint)
{
    frozen::Silence();
    Touch();
    TQ3Vector3D const second = m_world->GetWaypointPosition(1);
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 1);
    EXPECT_THAT(m_world->GetWaypoint()->GetPosition(), IsExactly(second.x, second.y, second.z));
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetCounter()), "2/8");
    EXPECT_TRUE(frozen::Plays("Attention.AIFF"));
}

TEST_F(UniverseRaceTest, MarkerIsTouchedAtItsRadiusAndTheShips)
{
    TQ3Vector3D const marker = m_world->GetWaypointPosition(0);
    m_world->GetCamera()->MoveTo(marker.x, marker.y + 0.71F, marker.z);
    m_world->Tick(0.001);
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 0);
    m_world->GetCamera()->MoveTo(marker.x, marker.y + 0.69F, marker.z);
    m_world->Tick(0.001);
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 1);
}

TEST_F(UniverseRaceTest, MarkerIsTestedAgainstTheShipAsMovedInTheSameFrame)
{
    Camera& ship = *m_world->GetCamera();
    test::LayShip(ship, {-3.5F, -3.5F, -4.5F}); // facing the marker, a unit ahead
    ship.SetMinMaxVelocity(0.0F, 4.0F);
    ship.SetTargetVPct(0.25F);
    ship.SetVelocity(1.0F);
    m_world->Tick(0.5);
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 1);
}

TEST_F(UniverseRaceTest, LastButOneTouchShowsTheFinish)
{
    for (int i = 0; i < 7; ++i)
    {
        Touch();
    }
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 7);
    EXPECT_THAT(m_world->GetWaypoint()->GetPosition(), IsExactly(14.5F, 14.5F, 14.5F));
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetCounter()), "8/8");
}

TEST_F(UniverseRaceTest, ActivatingAWaypointIsHeardAndShown)
{
    frozen::Silence();
    m_world->ActivateWaypoint(4);
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 4);
    TQ3Vector3D const fifth = m_world->GetWaypointPosition(4);
    EXPECT_THAT(m_world->GetWaypoint()->GetPosition(), IsExactly(fifth.x, fifth.y, fifth.z));
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetCounter()), "5/8");
    EXPECT_TRUE(frozen::Plays("Attention.AIFF"));
}

TEST_F(UniverseRaceTest, ActivatingTheFirstWaypointIsSilent)
{
    frozen::Silence();
    m_world->ActivateWaypoint(0);
    EXPECT_FALSE(frozen::Plays("Attention.AIFF"));
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetCounter()), "1/8");
}

TEST_F(UniverseRaceTest, NothingLeadsAwayFromTheLastWaypoint)
{
    m_world->ActivateWaypoint(7);
    m_world->ActivateWaypoint(2);
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 7);
    EXPECT_THAT(m_world->GetWaypoint()->GetPosition(), IsExactly(14.5F, 14.5F, 14.5F));
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetCounter()), "8/8");
}

TEST_F(UniverseRaceTest, ClockRunsWithTheFrames)
{
    m_world->Tick(0.25);
    m_world->Tick(0.5);
    EXPECT_EQ(m_world->GetRaceTime(), 0.75);
    EXPECT_EQ(m_world->GetTimeElapsed(), 0.75);
}

TEST_F(UniverseRaceTest, ClockIsWrittenWhenItsSecondChanges)
{
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetClock()), "");
    m_world->Tick(0.75);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetClock()), "");
    m_world->Tick(0.75);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetClock()), " 0:01 ");
    m_world->Tick(73.5);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetClock()), " 1:15 ");
}

TEST_F(UniverseRaceTest, PauseFreezesShipMarkerAndClock)
{
    m_world->PlayerWantsToGo(1.0F);
    m_world->Tick(1.0);
    TQ3Vector3D const place = m_world->GetCamera()->GetPosition();
    TQ3Quaternion const spin = m_world->GetWaypoint()->GetRotation();
    m_world->Pause();
    EXPECT_TRUE(m_world->IsPaused());
    m_world->Tick(2.0);
    EXPECT_THAT(m_world->GetCamera()->GetPosition(), IsExactly(place.x, place.y, place.z));
    EXPECT_THAT(m_world->GetWaypoint()->GetRotation(), test::IsQuaternion(spin.w, spin.x, spin.y, spin.z));
    EXPECT_EQ(m_world->GetRaceTime(), 1.0);
    EXPECT_EQ(m_world->GetTimeElapsed(), -1.0); // the pause is taken off
    m_world->Unpause();
    m_world->Unpause(); // twice does no harm
    m_world->Tick(1.0);
    EXPECT_EQ(m_world->GetRaceTime(), 2.0);
}

TEST_F(UniverseRaceTest, PauseIsTakenOffTheResultAlthoughTheClockStoodStill)
{
    m_world->Tick(60.0);
    m_world->Pause();
    m_world->Tick(10.0);
    m_world->Unpause();
    m_world->Tick(5.0);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetClock()), " 1:05 ");
    EXPECT_EQ(m_world->GetTimeElapsed(), 55.0);
}

TEST_F(UniverseRaceTest, PausedMarkerIsNotTouched)
{
    m_world->Pause();
    Touch();
    EXPECT_EQ(m_world->GetCurrentWaypoint(), 0);
}

TEST_F(UniverseRaceTest, DistanceIsShownInWholeUnits)
{
    TQ3Vector3D const marker = m_world->GetWaypointPosition(0);
    m_world->GetCamera()->MoveTo(marker.x + 12.9F, marker.y, marker.z);
    m_world->Tick(0.001);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetDistance()), "12");
}

// 0.95 units and its square are both 0 whole units: the one case in which the text stays.
TEST_F(UniverseRaceTest, DistanceIsComparedWithTheSquareOfTheFrameBefore)
{
    TQ3Vector3D const marker = m_world->GetWaypointPosition(0);
    m_world->GetCamera()->MoveTo(marker.x + 0.95F, marker.y, marker.z);
    m_world->Tick(0.001);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetDistance()), "");

    m_world->GetCamera()->MoveTo(marker.x + 5.5F, marker.y, marker.z);
    m_world->Tick(0.001);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetDistance()), "5");
    m_world->GetCamera()->MoveTo(marker.x + 0.95F, marker.y, marker.z);
    m_world->Tick(0.001);
    EXPECT_EQ(TextOf(m_world->GetCockpit().GetDistance()), "5");
}

TEST_F(UniverseRaceTest, DistanceStaysRightFarOut)
{
    TQ3Vector3D const marker = m_world->GetWaypointPosition(0);
    m_world->GetCamera()->MoveTo(marker.x, marker.y, marker.z - 100000.0F);
    m_world->Tick(0.001);
    EXPECT_NEAR(std::stoi(TextOf(m_world->GetCockpit().GetDistance())), 100000, 1);
}

TEST_F(UniverseRaceTest, ThrottleGoesToTheShipUnchanged)
{
    m_world->PlayerWantsToGo(0.6F);
    EXPECT_EQ(m_world->GetCamera()->GetTargetVPct(), 0.6F);
    m_world->PlayerWantsToGo(1.5F);
    EXPECT_EQ(m_world->GetCamera()->GetTargetVPct(), 1.5F);
}

TEST_F(UniverseRaceTest, CockpitIsShownAndHidden)
{
    m_world->SetCockpitVisible(false);
    EXPECT_TRUE(m_world->IsCockpitHidden());
    m_world->SetCockpitVisible(true);
    EXPECT_FALSE(m_world->IsCockpitHidden());
}

class FinishTest : public GameStage
{
};

TEST_F(FinishTest, TouchingTheLastWaypointEndsTheRace)
{
    Game& game = *Game::pGame;
    game.SwitchToState(kStatePlaying);
    Universe& world = *game.GetUniverse();
    world.Tick(94.875);
    world.ActivateWaypoint(7);
    world.GetCamera()->MoveTo(14.5F, 14.5F, 14.5F);
    frozen::Silence();
    world.Tick(0.25);

    EXPECT_EQ(game.GetState(), kStateMenu);
    EXPECT_EQ(TextOf(*Menu::GetCurrent(), 0), "Total Time: 1:34") << "the frame's own time is added later";
    EXPECT_TRUE(frozen::Plays("Fanfare.AIFF"));
    for (char const* const silent : {"Attention.AIFF", "Starter.AIFF", "HiScore.AIFF"})
    {
        EXPECT_FALSE(frozen::Plays(silent)) << silent;
    }
    EXPECT_TRUE(world.IsPaused());
    EXPECT_TRUE(world.IsCockpitHidden());
    EXPECT_THAT(world.GetWaypoint()->GetPosition(), IsExactly(100.5F, 100.5F, 100.5F));
    EXPECT_EQ(world.GetCurrentWaypoint(), 7);
    EXPECT_EQ(world.GetRaceTime(), 95.125); // the finishing frame counts
}

} // namespace
