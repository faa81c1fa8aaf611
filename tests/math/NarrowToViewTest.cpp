// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The scene skips the cells that NarrowToView() leaves out: it must leave out no point of the view, and most
// others.
#include "math/Plane.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

constexpr int kReach = 60; // cells on either side of the eye

// A view from a point near (place, place, place), into one of many directions.
Frustum ViewFrom(float place, int turn)
{
    float const heading = static_cast<float>(turn) * 0.7F;
    float const elevation = std::sin(static_cast<float>(turn) * 1.3F) * 1.5F;
    TQ3Vector3D const eye{place + 0.3F, place - 0.2F, place};
    TQ3Vector3D const facing{std::cos(elevation) * std::cos(heading), std::sin(elevation),
                             std::cos(elevation) * std::sin(heading)};
    TQ3Vector3D const up{-std::sin(elevation) * std::cos(heading), std::cos(elevation),
                         -std::sin(elevation) * std::sin(heading)};
    return {0.7853982F, 16.0F / 9.0F, &eye, &facing, &up, 51.0F};
}

struct Tally
{
    int kept = 0;
    int inside = 0;
    int lost = 0;
};

Tally CountCells(Frustum const& frustum, float place)
{
    Tally tally;
    auto const centre = static_cast<int>(place);
    for (int x = centre - kReach; x <= centre + kReach; x += 3)
    {
        for (int y = centre - kReach; y <= centre + kReach; y += 3)
        {
            auto minZ = static_cast<float>(centre - kReach);
            auto maxZ = static_cast<float>(centre + kReach);
            frustum.NarrowToView(static_cast<float>(x), static_cast<float>(y), &minZ, &maxZ);
            for (int z = centre - kReach; z <= centre + kReach; ++z)
            {
                TQ3Vector3D const cell{static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
                bool const isKept = minZ <= cell.z && cell.z <= maxZ;
                bool const isInside = frustum.IsPointInside(cell);
                tally.kept += isKept ? 1 : 0;
                tally.inside += isInside ? 1 : 0;
                tally.lost += isInside && !isKept ? 1 : 0;
            }
        }
    }
    return tally;
}

TEST(NarrowToView, LosesNoCellOfTheView)
{
    for (float const place : {-10.0F, 0.0F, 100.0F, 5000.0F, 200000.0F})
    {
        for (int turn = 0; turn < 40; ++turn)
        {
            Tally const tally = CountCells(ViewFrom(place, turn), place);
            EXPECT_GT(tally.inside, 100) << "at " << place << ", turn " << turn;
            EXPECT_EQ(tally.lost, 0) << "at " << place << ", turn " << turn;
        }
    }
}

// The slack adds a cell here and there, where a row passes close by the view.
TEST(NarrowToView, KeepsHardlyMoreThanTheView)
{
    for (int turn = 0; turn < 40; ++turn)
    {
        Tally const tally = CountCells(ViewFrom(20.0F, turn), 20.0F);
        EXPECT_LE(tally.kept, tally.inside + tally.inside / 50 + 5) << "turn " << turn;
    }
}

TEST(NarrowToView, LeavesNothingOfALineBesideTheView)
{
    TQ3Vector3D const eye{0.0F, 0.0F, 0.0F};
    TQ3Vector3D const facing{0.0F, 0.0F, -1.0F};
    TQ3Vector3D const up{0.0F, 1.0F, 0.0F};
    Frustum const frustum(0.7853982F, 1.0F, &eye, &facing, &up, 10.0F);
    float minZ = -10.0F;
    float maxZ = 10.0F;

    frustum.NarrowToView(50.0F, 0.0F, &minZ, &maxZ);

    EXPECT_LT(maxZ, minZ);
}

} // namespace
