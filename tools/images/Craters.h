// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The craters of the rock: where they are, and what each does to the height and the brightness of the ground.
#pragma once

#include "common/Vector.h"

#include <cstdint>
#include <vector>

namespace maker
{

// The ground at one point. Heights are in radii of the rock, bare is how much fresh, bright material lies
// there (0 to 1).
struct Ground
{
    double height = 0.0;
    double bare = 0.0;
};

class Craters
{
public:
    explicit Craters(std::uint64_t seed);

    // Changes the ground at a point (a unit vector) by every crater that reaches it, the oldest first.
    void Dig(Vector const& point, Ground& ground) const;

private:
    struct Crater
    {
        Vector centre;
        double radius = 0.0; // as a chord, in radii of the rock
        double depth = 0.0;
        double freshness = 0.0; // 0 (worn down) to 1
        double cosReach = 1.0;  // beyond this angle it does nothing
    };

    void Add(Vector const& centre, double radius, double freshness);
    void Scatter(int count, double smallest, double largest, std::uint64_t seed);
    bool Crowded(Vector const& centre, double radius) const;

    std::vector<Crater> m_craters;
};

} // namespace maker
