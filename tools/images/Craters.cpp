// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The shape of a crater: a bowl with a flattened floor, a sharp rim, and an apron of thrown-out rock around
// it.
#include "images/Craters.h"

#include "common/Maths.h"
#include "common/Random.h"
#include "images/SpaceNoise.h"

#include <algorithm>

namespace maker
{

namespace
{

constexpr double kReach = 2.1; // in crater radii

Vector RandomDirection(Random& random)
{
    double const z = random.Range(-1.0, 1.0);
    double const turn = random.Unit();
    double const ring = std::sqrt(1.0 - z * z);
    return {ring * Cosine(turn), ring * Sine(turn), z};
}

// Height at x crater radii from the centre, for a depth of 1.
double Profile(double x)
{
    double const bowl = x < 1.0 ? std::max(1.35 * x * x - 1.35, -0.9) : 0.0;
    double const side = (x - 1.0) / (x < 1.0 ? 0.12 : 0.26);
    return bowl + 0.32 * Exp(-side * side);
}

} // namespace

Craters::Craters(std::uint64_t seed)
{
    // A sphere of few slices shears the map within its caps, from one slice to the next. A round crater
    // exactly on the pole looks the same under any such shear; large ones elsewhere keep clear of the caps.
    Add({0.0, 0.0, 1.0}, 0.24, 0.0);
    Add({0.0, 0.0, -1.0}, 0.30, 0.0);
    Scatter(6, 0.30, 0.52, seed + 1);
    Scatter(16, 0.13, 0.24, seed + 2);
    Scatter(46, 0.065, 0.12, seed + 3);
    Scatter(110, 0.036, 0.060, seed + 4);
}

void Craters::Add(Vector const& centre, double radius, double freshness)
{
    double const chord = std::min(radius * kReach, 1.9);
    double const depth = 0.34 * radius * Mix(0.55, 1.0, freshness);
    m_craters.push_back({centre, radius, depth, freshness, 1.0 - 0.5 * chord * chord});
}

// Craters of like size overlap only a little: too many rings through one another read as scribble.
bool Craters::Crowded(Vector const& centre, double radius) const
{
    double const latitude = std::abs(centre.z);
    double const cap = radius > 0.12 ? 0.80 : (radius > 0.062 ? 0.93 : 0.97);
    if (latitude > cap)
    {
        return true;
    }
    return std::any_of(m_craters.begin(), m_craters.end(),
                       [&](Crater const& other)
                       {
                           Vector const apart = centre - other.centre;
                           double const limit = 0.85 * (other.radius + radius);
                           return other.radius < 2.2 * radius && Dot(apart, apart) < limit * limit;
                       });
}

void Craters::Scatter(int count, double smallest, double largest, std::uint64_t seed)
{
    Random random(seed);
    int placed = 0;
    for (int attempt = 0; attempt < 60 * count && placed < count; ++attempt)
    {
        Vector const centre = RandomDirection(random);
        double const share = random.Unit();
        double const freshness = random.Unit();
        double const radius = smallest * largest / Mix(largest, smallest, share * share * 0.8);
        if (Crowded(centre, radius))
        {
            continue;
        }
        Add(centre, radius, freshness * freshness);
        ++placed;
    }
}

void Craters::Dig(Vector const& point, Ground& ground) const
{
    for (Crater const& crater : m_craters)
    {
        double const cosine = Dot(point, crater.centre);
        if (cosine < crater.cosReach)
        {
            continue;
        }
        double const round = std::sqrt(std::max(0.0, 2.0 - 2.0 * cosine)) / crater.radius;
        // Around the poles the rings stay exact circles, see the constructor.
        bool const polar = std::abs(crater.centre.z) > 0.999;
        double const ragged = polar ? 0.0 : 0.16 * SpaceNoise(point * (2.2 / crater.radius), 77);
        double const x = round * (1.0 + ragged);
        double const inside = SmoothStep(1.15, 0.75, x);
        ground.height = ground.height * (1.0 - 0.75 * inside) + crater.depth * Profile(x);
        // Young craters have bright walls and throw out rays of bright dust.
        double const rays =
            polar ? 0.0 : SpaceNoise(Normalized(point - crater.centre * cosine) * 2.6 + crater.centre, 78);
        double const apron =
            x < 1.0 ? SmoothStep(0.45, 0.95, x) : SmoothStep(kReach, 0.9, x) * (0.75 + 0.6 * rays);
        ground.bare = ground.bare * (1.0 - 0.7 * inside) + crater.freshness * apron;
    }
}

} // namespace maker
