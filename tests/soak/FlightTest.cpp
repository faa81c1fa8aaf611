// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Hours of simulated flight into the depths of the field, 60 steps to the second: the ship keeps its course
// and speed as exactly as 32-bit coordinates allow, and the last steps take no longer than the first.
#include "core/Game.h"
#include "support/flight/Vectors.h"
#include "support/Stage.h"
#include "support/Worlds.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <iostream>

namespace
{

constexpr int kStepsPerSecond = 60;
constexpr int kMinute = 60 * kStepsPerSecond; // steps
constexpr int kMinutes = 240;
constexpr float kSpeed = 4.0F; // units per second
constexpr TQ3Vector3D kStart{-10.0F, -10.0F, -10.0F};

// Processor time in seconds.
double CostOf(Universe& universe, int steps)
{
    std::clock_t const start = std::clock();
    for (int i = 0; i < steps; ++i)
    {
        universe.Tick(1.0 / kStepsPerSecond);
    }
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

class Flight : public GameStage
{
protected:
    // At full speed along the diagonal, which crosses every depth of the field.
    static void SetOff(Universe& universe, TQ3Vector3D const& from)
    {
        Camera& ship = *universe.GetCamera();
        test::LayShip(ship, from);
        ship.SetMinMaxVelocity(0.0F, kSpeed);
        ship.TurnToFace(from.x + 1.0F, from.y + 1.0F, from.z + 1.0F);
        universe.PlayerWantsToGo(1.0F);
        ship.SetVelocity(kSpeed);
    }
};

TEST_F(Flight, KeepsItsCourseForFourHours)
{
    auto const universe = test::EmptyWorld();
    SetOff(*universe, kStart);
    Camera const& ship = *universe->GetCamera();
    double const first = CostOf(*universe, kMinute);
    CostOf(*universe, (kMinutes - 2) * kMinute);
    double const last = CostOf(*universe, kMinute);
    TQ3Vector3D const end = ship.GetPosition();

    // A step is 0.038 along each axis; near 33,000 coordinates are 0.004 apart, which rounds it by a
    // twentieth at most.
    double const flown = test::Length(test::Difference(end, kStart));
    double const expected = 60.0 * kMinutes * kSpeed;
    std::cout << flown << " of " << expected << " units; a minute costs " << first << " s at first, " << last
              << " s at last\n";
    EXPECT_NEAR(flown, expected, 0.05 * expected);
    EXPECT_NEAR(end.x, end.y, 0.001 * flown);
    EXPECT_NEAR(end.x, end.z, 0.001 * flown);
    TQ3Quaternion const& r = ship.GetRotation();
    EXPECT_NEAR(r.w * r.w + r.x * r.x + r.y * r.y + r.z * r.z, 1.0, 1e-5);
    EXPECT_LT(last, 4.0 * first + 0.1) << "a step has become slower";
}

// Whenever a rock stops it, the ship turns a little and goes on; every minute it is laid on its course again.
TEST_F(Flight, GetsThroughTheRocksForFourHours)
{
    auto const universe = test::SeededWorld(2026);
    Camera const& ship = *universe->GetCamera();
    TQ3Vector3D place = kStart;
    double first = 0.0;
    double last = 0.0;
    int stops = 0;
    for (int minute = 0; minute < kMinutes; ++minute)
    {
        SetOff(*universe, place);
        last = 0.0;
        for (int second = 0; second < 60; ++second)
        {
            bool const isStopped = ship.GetTargetVPct() == 0.0F;
            stops += isStopped ? 1 : 0;
            universe->PlayerWantsToTurn(isStopped ? 1.0F : 0.0F, 0.0F);
            universe->PlayerWantsToGo(1.0F);
            last += CostOf(*universe, kStepsPerSecond);
        }
        first = minute == 0 ? last : first;
        place = ship.GetPosition();
    }
    std::cout << "stopped " << stops << " times, at (" << place.x << ", " << place.y << ", " << place.z
              << "); a minute costs " << first << " s at first, " << last << " s at last\n";
    EXPECT_GT(std::min({place.x, place.y, place.z}), 128.0F) << "it did not come to the densest field";
    EXPECT_GT(stops, kMinutes);
    EXPECT_NEAR(universe->GetRaceTime(), 60.0 * kMinutes, 0.01);
    EXPECT_LT(last, 4.0 * first + 0.1) << "a step has become slower";
}

} // namespace
