// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Tone is built in layers: minerals, dust in the hollows, crests rubbed bright, fresh rock around young
// craters, veins.
#include "images/Rock.h"

#include "common/Maths.h"
#include "images/SpaceNoise.h"

#include <algorithm>

namespace maker
{

namespace
{

constexpr double kMeanTone = 0.60;
constexpr int kRingPoints = 8;

Vector const kWarm = {1.06, 0.995, 0.92};
Vector const kCool = {0.975, 1.00, 1.03};
Vector const kRust = {1.12, 0.965, 0.83};
Vector const kPole = {0.56, 0.55, 0.53};
Vector const kFresh = {1.00, 1.01, 1.03};

} // namespace

Ground Rock::GroundAt(Vector const& direction) const
{
    Ground ground;
    ground.height = 0.10 * LayeredNoise(direction * 1.6, 4, 0.5, 11);
    m_craters.Dig(direction, ground);
    ground.height += 0.007 * LayeredNoise(direction * 10.0, 3, 0.7, 31);
    return ground;
}

double Rock::Relief(Vector const& direction, double height, double radius) const
{
    Vector const aside = std::abs(direction.z) < 0.9 ? Vector{0.0, 0.0, 1.0} : Vector{1.0, 0.0, 0.0};
    Vector const east = Normalized(Cross(aside, direction));
    Vector const north = Cross(direction, east);
    double sum = 0.0;
    for (int i = 0; i < kRingPoints; ++i)
    {
        double const turn = (i + 0.5) / kRingPoints;
        Vector const step = east * (radius * Cosine(turn)) + north * (radius * Sine(turn));
        sum += Height(Normalized(direction + step));
    }
    return (height - sum / kRingPoints) / radius;
}

Vector Rock::Colour(Vector const& direction) const
{
    Ground const ground = GroundAt(direction);
    double const sharp = SoftClip(Relief(direction, ground.height, 0.035) * 6.0);
    double const broad = SoftClip(Relief(direction, ground.height, 0.15) * 4.5);
    double const minerals = LayeredNoise(direction * 2.1 + Vector{5.0, 0.0, 0.0}, 5, 0.6, 51);
    double const grain = LayeredNoise(direction * 12.0, 3, 1.0, 61);
    double const vein = LineNoise(direction * 1.7, 0.03, 71) * SmoothStep(-0.2, 0.5, minerals);
    double const crack =
        LineNoise(direction * 2.4 + Vector{3.0, 0.0, 7.0}, 0.03, 91) * SmoothStep(0.3, -0.3, minerals);

    double const tone = kMeanTone + 0.13 * sharp + 0.14 * broad + 0.11 * minerals + 0.10 * grain +
                        0.17 * (ground.bare - 0.06) + 0.15 * vein - 0.17 * crack;
    double const hue = LayeredNoise(direction * 1.3 + Vector{0.0, 9.0, 0.0}, 3, 0.5, 81);
    Vector tint = Mixed(kCool, kWarm, SmoothStep(-0.5, 0.5, hue));
    tint = Mixed(tint, kRust, 0.55 * SmoothStep(0.25, 0.9, minerals - 0.5 * sharp));
    tint = Mixed(tint, kFresh, std::clamp(ground.bare + vein, 0.0, 1.0) * 0.7);
    // A pole's row of pixels is one point of the sphere, where the repeating texture mixes the rows of both
    // poles.
    return Mixed(tint * tone, kPole, SmoothStep(0.994, 0.9998, std::abs(direction.z)));
}

} // namespace maker
