// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Whole races, flown by the pilot in simulation, and the lines that it flies on.
#include "support/flight/SimulatedRace.h"
#include "support/Rounds.h"
#include "support/Stage.h"
#include "support/Worlds.h"
#include "world/Universe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace
{

// Each race must be over in less than ten simulated minutes.
constexpr int kStepLimit = 10 * 60 * SimulatedRace::kStepsPerSecond;

constexpr unsigned kSeedCount = test::Rounds(200);

constexpr float kShipRadius = 0.1F;

// Flies one race and returns its length in seconds.
double Fly(unsigned seed)
{
    SimulatedRace race(seed);
    for (int step = 0; step < kStepLimit && !race.IsOver(); ++step)
    {
        race.Step();
    }
    Universe const& universe = race.GetUniverse();
    EXPECT_TRUE(race.IsOver()) << "seed " << seed << ": at waypoint " << universe.GetCurrentWaypoint() + 1
                               << " after " << universe.GetRaceTime() << " s";
    return universe.GetRaceTime();
}

// True when a ship meets no asteroid on its way through the whole field and all its depths, along x, y or z,
// with the other two coordinates as given. In the steps of 16 units in which the field repeats.
bool IsFree(Universe const& world, int axis, float u, float v)
{
    constexpr float TQ3Vector3D::*kAxes[] = {&TQ3Vector3D::x, &TQ3Vector3D::y, &TQ3Vector3D::z};
    TQ3Vector3D place;
    place.*kAxes[axis] = -2.0F;
    place.*kAxes[(axis + 1) % 3] = u;
    place.*kAxes[(axis + 2) % 3] = v;
    bool isFree = true;
    for (int i = 0; i < 9; ++i)
    {
        TQ3Vector3D const from = place;
        place.*kAxes[axis] += 16.0F;
        TQ3Vector3D hit;
        float fraction = 0.0F;
        isFree = isFree && !world.WillPathCollide(from, place, kShipRadius, &hit, &fraction);
    }
    return isFree;
}

using PilotTest = GameStage;

TEST_F(PilotTest, LinesAtHalvesAreFreeOfTheLargestAsteroids)
{
    auto const world = test::FullWorld(0.6F);
    for (int line = 0; line < 3 * 16 * 16; ++line)
    {
        float const u = static_cast<float>(line / 16 % 16) + 0.5F;
        float const v = static_cast<float>(line % 16) + 0.5F;
        EXPECT_TRUE(IsFree(*world, line / 256, u, v)) << "axis " << line / 256 << " at " << u << ", " << v;
        EXPECT_FALSE(IsFree(*world, line / 256, u + 0.006F, v + 0.006F)) << "more room than thought";
    }
}

TEST_F(PilotTest, FinishesEveryCourseInUnderTenMinutes)
{
    std::vector<double> seconds;
    for (unsigned seed = 1; seed <= kSeedCount; ++seed)
    {
        seconds.push_back(Fly(seed));
    }
    std::ranges::sort(seconds);
    std::printf("%zu races: fastest %.1f s, median %.1f s, slowest %.1f s\n", seconds.size(), seconds.front(),
                seconds[seconds.size() / 2], seconds.back());
}

} // namespace
