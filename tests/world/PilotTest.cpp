// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Whole races, flown by the pilot in simulation.
#include "support/Rounds.h"
#include "support/SimulatedRace.h"
#include "support/Stage.h"
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

struct Result
{
    unsigned seed;
    double seconds;
    int waypoints;
    int replans;
    bool finished;
};

Result Fly(unsigned seed)
{
    SimulatedRace race(seed);
    for (int step = 0; step < kStepLimit && !race.IsOver(); ++step)
    {
        race.Step();
    }
    Universe const& universe = race.GetUniverse();
    return {seed, universe.GetRaceTime(), universe.GetCurrentWaypoint(), race.GetPilot().GetReplanCount(),
            race.IsOver()};
}

void Print(std::vector<Result> results)
{
    std::printf("seed:seconds");
    for (std::size_t i = 0; i < results.size(); ++i)
    {
        std::printf("%s%4u:%6.1f", i % 10 == 0 ? "\n" : "  ", results[i].seed, results[i].seconds);
    }
    std::ranges::sort(results, {}, &Result::seconds);
    std::printf("\n%zu races: fastest %.1f s, median %.1f s, slowest %.1f s\n", results.size(),
                results.front().seconds, results[results.size() / 2].seconds, results.back().seconds);
}

using PilotTest = GameStage;

TEST_F(PilotTest, FinishesEveryCourseInUnderTenMinutes)
{
    std::vector<Result> results;
    for (unsigned seed = 1; seed <= kSeedCount; ++seed)
    {
        results.push_back(Fly(seed));
        Result const& result = results.back();
        EXPECT_TRUE(result.finished) << "seed " << seed << ": at waypoint " << result.waypoints + 1
                                     << " after " << result.seconds << " s and " << result.replans
                                     << " new plans";
    }
    Print(results);
}

} // namespace
