// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Gradient noise over a lattice of random slopes (after K. Perlin).
#include "images/SpaceNoise.h"

#include "common/Maths.h"
#include "common/Random.h"

namespace maker
{

namespace
{

struct Cell
{
    std::int64_t x;
    std::int64_t y;
    std::int64_t z;
};

// The height at an offset from one lattice point, on that point's random slope.
double Slope(Cell const& cell, Vector const& offset, std::uint64_t seed)
{
    std::uint64_t const mixed = static_cast<std::uint64_t>(cell.x) * 0x9E3779B97F4A7C15ULL ^
                                static_cast<std::uint64_t>(cell.y) * 0xC2B2AE3D27D4EB4FULL ^
                                static_cast<std::uint64_t>(cell.z) * 0x165667B19E3779F9ULL;
    std::uint64_t const bits = Scramble(mixed + seed * 0xD6E8FEB86659FD93ULL);
    Vector const slope = {ToUnit(bits) - 0.5, ToUnit(bits << 21) - 0.5, ToUnit(bits << 42) - 0.5};
    return Dot(slope, offset);
}

double Edge(Cell const& cell, Vector const& offset, double fade, std::uint64_t seed)
{
    double const near = Slope(cell, offset, seed);
    double const far = Slope({cell.x + 1, cell.y, cell.z}, {offset.x - 1.0, offset.y, offset.z}, seed);
    return Mix(near, far, fade);
}

double Side(Cell const& cell, Vector const& offset, double fadeX, double fadeY, std::uint64_t seed)
{
    double const near = Edge(cell, offset, fadeX, seed);
    double const far = Edge({cell.x, cell.y + 1, cell.z}, {offset.x, offset.y - 1.0, offset.z}, fadeX, seed);
    return Mix(near, far, fadeY);
}

} // namespace

double SpaceNoise(Vector const& point, std::uint64_t seed)
{
    Vector const floor = {std::floor(point.x), std::floor(point.y), std::floor(point.z)};
    Cell const cell = {static_cast<std::int64_t>(floor.x), static_cast<std::int64_t>(floor.y),
                       static_cast<std::int64_t>(floor.z)};
    Vector const offset = point - floor;
    double const fadeX = Fade(offset.x);
    double const fadeY = Fade(offset.y);
    double const near = Side(cell, offset, fadeX, fadeY, seed);
    double const far =
        Side({cell.x, cell.y, cell.z + 1}, {offset.x, offset.y, offset.z - 1.0}, fadeX, fadeY, seed);
    return 2.4 * Mix(near, far, Fade(offset.z));
}

double LayeredNoise(Vector const& point, int layers, double gain, std::uint64_t seed)
{
    double sum = 0.0;
    double weight = 1.0;
    double total = 0.0;
    Vector place = point;
    for (int i = 0; i < layers; ++i)
    {
        sum += weight * SpaceNoise(place, seed + static_cast<std::uint64_t>(i));
        total += weight * weight;
        weight *= gain;
        // The shift keeps the layers' lattice points, where each is 0, from falling on one another.
        place = place * 2.0 + Vector{0.37, 0.71, 0.19};
    }
    return sum / std::sqrt(total);
}

double LineNoise(Vector const& point, double width, std::uint64_t seed)
{
    double const distance = LayeredNoise(point, 3, 0.5, seed) / width;
    return 1.0 / (1.0 + distance * distance * distance * distance);
}

} // namespace maker
