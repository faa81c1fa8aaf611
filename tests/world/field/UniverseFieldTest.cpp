// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How a world is built, what stands in which cell, and which paths hit it.
#include "gfx/Roid.h"
#include "support/MenuProbe.h"
#include "support/RecordingGL.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Universe.h"
#include "world/Waypoint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace
{

using test::IsExactly;
using test::IsNear;
using test::ScopedSetting;

// What the draws of a seed fill each cell variant with: the size class, or -1. In the order of the draws.
std::vector<int> ExpectedClasses(unsigned seed)
{
    constexpr float kEdge = 0.01F;
    constexpr float kCentre = 0.5F;
    std::vector<int> classes;
    std::srand(seed);
    for (int level = 0; level < 8; ++level)
    {
        float const threshold = kEdge + static_cast<float>(level) * (kCentre - kEdge) / 7.0F;
        for (int cell = 0; cell < 16 * 16 * 16; ++cell)
        {
            auto const draw = static_cast<float>(std::rand() * (1.0 / 2147483648.0));
            classes.push_back(threshold >= draw ? std::rand() % 4 : -1);
        }
    }
    return classes;
}

// The world cell (x, y, z) moved in by whole repetitions of the field until its level is the one asked for.
Roid const* RoidOfVariant(Universe const& world, int x, int y, int z, int level)
{
    return world.RoidAtCell(x + 16 * level, y + 16 * level, z + 16 * level);
}

int Draw(int lowest, int highest)
{
    auto const f = static_cast<float>(std::rand() * (1.0 / 2147483648.0));
    return static_cast<int>(f * static_cast<float>(highest - lowest + 1)) + lowest;
}

int CountRoids(Universe const& world)
{
    int count = 0;
    for (int level = 0; level < 8; ++level)
    {
        for (int cell = 0; cell < 4096; ++cell)
        {
            count += RoidOfVariant(world, cell / 256, cell / 16 % 16, cell % 16, level) != nullptr ? 1 : 0;
        }
    }
    return count;
}

using UniverseFieldTest = Stage;

TEST_F(UniverseFieldTest, SeedFillsTheLevelsOneAfterTheOtherWithZInnermost)
{
    std::vector<int> const expected = ExpectedClasses(1234);
    auto const world = test::SeededWorld(1234);
    std::size_t draw = 0;
    for (int level = 0; level < 8; ++level)
    {
        for (int cell = 0; cell < 4096; ++cell, ++draw)
        {
            Roid const* const roid = RoidOfVariant(*world, cell / 256, cell / 16 % 16, cell % 16, level);
            ASSERT_EQ(roid == nullptr ? -1 : roid->GetSizeClass(), expected[draw])
                << "level " << level << ", cell " << cell;
        }
    }
}

TEST_F(UniverseFieldTest, SizeClassDecidesTheRadius)
{
    auto const world = test::SeededWorld(99);
    constexpr float kRadii[] = {0.1F, 0.26666667F, 0.43333334F, 0.6F};
    int counts[4] = {};
    for (int cell = 0; cell < 4096; ++cell)
    {
        if (Roid const* const roid = RoidOfVariant(*world, cell / 256, cell / 16 % 16, cell % 16, 7))
        {
            ASSERT_FLOAT_EQ(roid->GetRadius(), kRadii[roid->GetSizeClass()]);
            ++counts[roid->GetSizeClass()];
        }
    }
    for (int const count : counts)
    {
        EXPECT_NEAR(count, 512, 110); // about five standard deviations
    }
}

TEST_F(UniverseFieldTest, NewAsteroidStandsInItsCell)
{
    auto const world = test::FullWorld(0.2F);
    EXPECT_THAT(world->RoidAtCell(3, 4, 5)->GetPosition(), IsExactly(3.0F, 4.0F, 5.0F));
}

TEST_F(UniverseFieldTest, DensityOfZeroLeavesTheFieldEmpty)
{
    EXPECT_EQ(CountRoids(*test::EmptyWorld()), 0);
}

TEST_F(UniverseFieldTest, DensityOfOneFillsEverySlot)
{
    EXPECT_EQ(CountRoids(*test::FullWorld(0.2F)), 16 * 16 * 16 * 8);
}

// Edge 0.01 and centre 0.5 in seven equal steps; 4096 draws deviate by less than 0.04.
TEST_F(UniverseFieldTest, DensityGrowsFromTheEdgeToTheCentre)
{
    auto const world = test::SeededWorld(5);
    for (int level = 0; level < 8; ++level)
    {
        int count = 0;
        for (int cell = 0; cell < 4096; ++cell)
        {
            count += RoidOfVariant(*world, cell / 256, cell / 16 % 16, cell % 16, level) != nullptr ? 1 : 0;
        }
        EXPECT_NEAR(count / 4096.0, 0.01 + level * 0.07, 0.04) << "level " << level;
    }
}

TEST_F(UniverseFieldTest, CourseIsDrawnAfterTheField)
{
    auto const world = test::SeededWorld(77);
    ExpectedClasses(77); // draws on to where the field ends
    int side = Draw(0, 2);
    for (int k = 1; k <= 5; ++k)
    {
        side = (side + Draw(1, 2)) % 3;
        float const n = 18.0F * static_cast<float>(k);
        float const full = n + 0.5F;
        float const half = n / 2.0F + 0.5F;
        float const expected[3][3] = {{full, full, half}, {half, full, full}, {full, half, full}};
        EXPECT_THAT(world->GetWaypointPosition(k),
                    IsExactly(expected[side][0], expected[side][1], expected[side][2]));
    }
}

TEST_F(UniverseFieldTest, CoordinateGivesALevelForEverySixteenUnits)
{
    EXPECT_EQ(Universe::CoordToDensity(0), 0);
    EXPECT_EQ(Universe::CoordToDensity(15), 0);
    EXPECT_EQ(Universe::CoordToDensity(16), 1);
    EXPECT_EQ(Universe::CoordToDensity(111), 6);
    EXPECT_EQ(Universe::CoordToDensity(112), 7);
    EXPECT_EQ(Universe::CoordToDensity(1000), 7);
    EXPECT_EQ(Universe::CoordToDensity(-15), 0);
}

TEST_F(UniverseFieldTest, SmallestCoordinateIsTheDepth)
{
    auto const world = test::FullWorld(0.2F);
    EXPECT_EQ(world->RoidAtCell(16, 0, 0), world->RoidAtCell(0, 0, 0));
    EXPECT_EQ(world->RoidAtCell(1000, 1000, 15), world->RoidAtCell(8, 8, 15));
    EXPECT_NE(world->RoidAtCell(16, 16, 16), world->RoidAtCell(0, 0, 0));
    EXPECT_EQ(world->RoidAtCell(32, 16, 48), world->RoidAtCell(16, 16, 16));
    EXPECT_NE(world->RoidAtCell(112, 112, 112), world->RoidAtCell(96, 96, 96));
    EXPECT_EQ(world->RoidAtCell(128, 128, 128), world->RoidAtCell(112, 112, 112));
}

TEST_F(UniverseFieldTest, NegativeSpaceIsEmpty)
{
    auto const world = test::FullWorld(0.2F);
    EXPECT_EQ(world->RoidAtCell(-1, 5, 5), nullptr);
    EXPECT_EQ(world->RoidAtCell(5, -1, 5), nullptr);
    EXPECT_EQ(world->RoidAtCell(5, 5, -16), nullptr);
}

TEST_F(UniverseFieldTest, ShipStartsOutsideFacingTheOrigin)
{
    auto const world = test::EmptyWorld();
    Camera const& ship = *world->GetCamera();
    EXPECT_THAT(ship.GetPosition(), IsExactly(-10.0F, -10.0F, -10.0F));
    TQ3Vector3D facing;
    ship.GetFacingNormal(&facing);
    EXPECT_THAT(facing, IsNear(0.57735027F, 0.57735027F, 0.57735027F, 1e-6F));
    EXPECT_EQ(ship.GetSpeed(), 0.0F);
}

TEST_F(UniverseFieldTest, ShipIsBuiltAsTheSettingsSay)
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

TEST_F(UniverseFieldTest, ReadOutsHaveTheirFontsAndColours)
{
    auto const world = test::EmptyWorld();
    Overlay const& clock = *world->GetTimerOverlay();
    EXPECT_EQ(probe::FontOf(clock), "Courier");
    EXPECT_EQ(probe::FontSizeOf(clock), 20.0F);
    EXPECT_EQ(clock.GetTexture().boxColor(), (platform::Color{0.3F, 0.3F, 0.3F, 0.2F}));
    EXPECT_EQ(clock.GetTexture().borderColor(), (platform::Color{0.8F, 0.8F, 1.0F, 1.0F}));
    for (Overlay const* overlay : {world->GetWaypointOverlay(), world->GetDistanceOverlay()})
    {
        EXPECT_EQ(probe::FontOf(*overlay), "Courier");
        EXPECT_EQ(probe::FontSizeOf(*overlay), 12.0F);
        EXPECT_EQ(overlay->GetTexture().boxColor(), (platform::Color{0.0F, 0.0F, 0.0F, 0.0F}));
        EXPECT_EQ(overlay->GetTexture().borderColor(), (platform::Color{0.0F, 0.0F, 0.0F, 0.0F}));
    }
}

TEST_F(UniverseFieldTest, FrameRateIsShownOnlyWhenTheSettingAsks)
{
    EXPECT_EQ(test::EmptyWorld()->GetFPSOverlay(), nullptr);
    ScopedSetting const shown(setting::kShowFps, 1);
    auto const world = test::EmptyWorld();
    ASSERT_NE(world->GetFPSOverlay(), nullptr);
    EXPECT_EQ(probe::FontOf(*world->GetFPSOverlay()), "Helvetica");
    EXPECT_EQ(probe::FontSizeOf(*world->GetFPSOverlay()), 12.0F);
    EXPECT_EQ(probe::BoxOf(*world->GetFPSOverlay()), (probe::Box{30, 30, 0, 0}));
}

TEST_F(UniverseFieldTest, NewWorldIsUnpausedWithItsCockpit)
{
    auto const world = test::EmptyWorld();
    EXPECT_FALSE(world->IsPaused());
    EXPECT_FALSE(world->IsCockpitHidden());
    EXPECT_EQ(world->GetRaceTime(), 0.0);
    EXPECT_EQ(world->GetPausedTime(), 0.0);
}

class CollisionTest : public Stage
{
protected:
    bool Collides(TQ3Vector3D const& start, TQ3Vector3D const& end)
    {
        m_fraction = -1.0F;
        return m_world->WillPathCollide(start, end, 0.1F, &m_point, &m_fraction);
    }

    // Asteroids and ship touch at 0.3; cells are searched 0.1 beyond a path's ends.
    std::unique_ptr<Universe> m_world = test::FullWorld(0.2F);
    TQ3Vector3D m_point;
    float m_fraction = -1.0F;
};

TEST_F(CollisionTest, PathIntoAnAsteroidHitsWhereTheSpheresTouch)
{
    EXPECT_TRUE(Collides({-1.0F, 0.0F, 0.0F}, {-0.1F, 0.0F, 0.0F}));
    EXPECT_THAT(m_point, IsNear(-0.3F, 0.0F, 0.0F, 1e-6F));
    EXPECT_EQ(m_fraction, 0.0F);
}

TEST_F(CollisionTest, HitBeyondTheEndIsIgnored)
{
    EXPECT_FALSE(Collides({-1.0F, 0.0F, 0.0F}, {-0.31F, 0.0F, 0.0F}));
    EXPECT_EQ(m_fraction, -1.0F);
}

TEST_F(CollisionTest, PathThroughTheMiddleOfTheCubesIsFree)
{
    EXPECT_FALSE(Collides({0.5F, 0.5F, -2.0F}, {0.5F, 0.5F, 9.0F}));
}

TEST_F(CollisionTest, NegativeSpaceIsFree)
{
    EXPECT_FALSE(Collides({-9.0F, -3.0F, -9.0F}, {-1.0F, -3.0F, -1.0F}));
}

TEST_F(CollisionTest, NearestOfSeveralHitsIsReported)
{
    EXPECT_TRUE(Collides({3.5F, 4.0F, 4.0F}, {6.5F, 4.0F, 4.0F}));
    EXPECT_THAT(m_point, IsNear(3.7F, 4.0F, 4.0F, 1e-5F));
}

TEST_F(CollisionTest, NearestOfSeveralHitsIsReportedOnTheWayBackToo)
{
    // The swapped range holds cells 4 to 6.
    EXPECT_TRUE(Collides({6.5F, 4.0F, 4.0F}, {3.5F, 4.0F, 4.0F}));
    EXPECT_THAT(m_point, IsNear(6.3F, 4.0F, 4.0F, 1e-5F));
}

// A line that passes all asteroids but the one at (4, 0, 0).
TEST_F(CollisionTest, AscendingPathIsSearchedBeyondItsEnds)
{
    EXPECT_TRUE(Collides({3.5F, -0.15F, -0.15F}, {6.5F, 0.75F, 0.75F}));
}

// From 6.5 down to 4 the range is floor(6.4) = 6 to ceil(4.1) = 5, swapped: the asteroid at 4, right on the
// path's end, is not looked at.
TEST_F(CollisionTest, PaddingLiesOnTheInnerSideOfADescendingPath)
{
    EXPECT_FALSE(Collides({6.5F, 0.75F, 0.75F}, {4.0F, 0.0F, 0.0F}));
    // Half a unit on, the range ends at ceil(3.6) = 4.
    EXPECT_TRUE(Collides({6.5F, 0.75F, 0.75F}, {3.5F, -0.15F, -0.15F}));
}

TEST_F(CollisionTest, AsteroidIsFoundInEveryRepetitionOfItsCell)
{
    EXPECT_TRUE(Collides({47.5F, 32.0F, 32.0F}, {48.5F, 32.0F, 32.0F}));
    EXPECT_THAT(m_point, IsNear(47.7F, 32.0F, 32.0F, 1e-4F));
    EXPECT_TRUE(Collides({15.5F, 0.0F, 0.0F}, {16.5F, 0.0F, 0.0F}));
    EXPECT_THAT(m_point, IsNear(15.7F, 0.0F, 0.0F, 1e-5F));
}

TEST_F(CollisionTest, PathOutOfAnAsteroidHitsAtItsFarSide)
{
    EXPECT_TRUE(Collides({4.0F, 4.0F, 4.0F}, {4.0F, 4.0F, 4.35F}));
    EXPECT_THAT(m_point, IsNear(4.0F, 4.0F, 4.3F, 1e-5F));
    EXPECT_FALSE(Collides({4.0F, 4.0F, 4.0F}, {4.0F, 4.0F, 4.25F}));
}

TEST_F(CollisionTest, EmptyFieldIsFree)
{
    m_world = test::EmptyWorld();
    EXPECT_FALSE(Collides({0.0F, 0.0F, -5.0F}, {0.0F, 0.0F, 50.0F}));
}

} // namespace
