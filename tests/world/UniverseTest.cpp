// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How a world is built, and what it leaves behind.
#include "world/Universe.h"

#include "core/Game.h"
#include "platform/base/Random.h"
#include "support/gl/RecordingGL.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using test::IsExactly;
using test::IsNear;
using test::ScopedSetting;

using UniverseTest = Stage;

TEST_F(UniverseTest, CourseIsDrawnAfterTheField)
{
    platform::SeedRandom(77);
    AsteroidField const field(nullptr);
    Course const course;
    auto const world = test::SeededWorld(77);
    for (int i = 0; i < Universe::kWaypointCount; ++i)
    {
        TQ3Vector3D const& expected = course.GetWaypoint(i);
        EXPECT_THAT(world->GetWaypointPosition(i), IsExactly(expected.x, expected.y, expected.z));
    }
}

TEST_F(UniverseTest, ShipStartsOutsideFacingTheOrigin)
{
    auto const world = test::EmptyWorld();
    Camera const& ship = *world->GetCamera();
    EXPECT_THAT(ship.GetPosition(), IsExactly(-10.0F, -10.0F, -10.0F));
    TQ3Vector3D facing;
    ship.GetFacingNormal(&facing);
    EXPECT_THAT(facing, IsNear(0.57735027F, 0.57735027F, 0.57735027F, 1e-6F));
    EXPECT_EQ(ship.GetSpeed(), 0.0F);
}

TEST_F(UniverseTest, ShipIsBuiltAsTheSettingsSay)
{
    ScopedSetting const minimum(setting::kPlayerMinSpeed, 0.5F);
    ScopedSetting const maximum(setting::kPlayerMaxSpeed, 7.0F);
    ScopedSetting const acceleration(setting::kPlayerMaxAccel, 2.0F);
    ScopedSetting const turn(setting::kPlayerRotationsPerSecond, 0.75F);
    auto const world = test::EmptyWorld();
    Camera const& ship = *world->GetCamera();
    EXPECT_EQ(ship.GetMinVelocity(), 0.5F);
    EXPECT_EQ(ship.GetMaxVelocity(), 7.0F);
    EXPECT_EQ(ship.GetMaxAcceleration(), 2.0F);
    EXPECT_EQ(ship.GetMaxRotation(), 0.75F);
}

TEST_F(UniverseTest, NewWorldIsUnpausedWithItsCockpit)
{
    auto const world = test::EmptyWorld();
    EXPECT_FALSE(world->IsPaused());
    EXPECT_FALSE(world->IsCockpitHidden());
    EXPECT_EQ(world->GetRaceTime(), 0.0);
    EXPECT_EQ(world->GetTimeElapsed(), 0.0);
}

class WorldResourcesTest : public GameStage
{
};

// A race's own textures are the asteroids', the sky and the lines of text drawn so far.
TEST_F(WorldResourcesTest, NewRacesLeaveNoTexturesBehind)
{
    Game& game = *Game::pGame;
    auto const race = [&game]
    {
        game.SwitchToState(kStatePlaying);
        game.GetUniverse()->Tick(1.5);
        game.Render(800, 600);
        game.SwitchToState(kStateMenu);
    };
    race();
    std::size_t const textures = recording::textures().size();
    std::size_t const lists = recording::lists().size();
    for (int i = 0; i < 20; ++i)
    {
        race();
    }
    EXPECT_EQ(recording::textures().size(), textures);
    EXPECT_EQ(recording::lists().size(), lists);
    EXPECT_EQ(lists, 12U);
}

TEST_F(WorldResourcesTest, WorldLeavesOnlyItsSkyBehind)
{
    std::size_t const before = recording::textures().size();
    {
        auto world = test::SeededWorld(3);
        world->Render(800, 600);
    }
    // The asteroids' texture of the game's own world was replaced by the new one's, and went with it.
    EXPECT_EQ(recording::textures().size(), before);
    EXPECT_TRUE(recording::lists().empty());
}

} // namespace
