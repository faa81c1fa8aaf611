// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Noise from random heights and slopes at the knots of a lattice, blended in between.
#include "images/TileNoise.h"

#include "common/Maths.h"
#include "common/Random.h"

namespace maker
{

TileNoise::TileNoise(int cells, std::uint64_t seed)
    : m_cells(cells),
      m_knots(static_cast<std::size_t>(cells) * static_cast<std::size_t>(cells))
{
    Random random(seed);
    for (Knot& knot : m_knots)
    {
        knot.value = 0.55 * random.Noise();
        knot.slopeU = 1.3 * random.Noise();
        knot.slopeV = 1.3 * random.Noise();
    }
    FoldEdges();
}

// Makes the knots along u = 0 those along v = 0, and both lines mirror images of themselves.
void TileNoise::FoldEdges()
{
    for (int i = 0; i <= m_cells / 2; ++i)
    {
        int const mirror = (m_cells - i) % m_cells;
        double const along = i == mirror ? 0.0 : KnotAt(i, 0).slopeU;
        double const value = KnotAt(i, 0).value;
        KnotAt(i, 0).slopeU = KnotAt(0, i).slopeV = along;
        if (i != mirror)
        {
            KnotAt(mirror, 0).slopeU = KnotAt(0, mirror).slopeV = -along;
        }
        KnotAt(mirror, 0).value = KnotAt(0, i).value = KnotAt(0, mirror).value = value;
    }
    KnotAt(0, 0).slopeU = KnotAt(0, 0).slopeV = 0.0;
}

std::size_t TileNoise::Place(int i, int j) const
{
    auto const cells = static_cast<std::size_t>(m_cells);
    return static_cast<std::size_t>(j) % cells * cells + static_cast<std::size_t>(i) % cells;
}

double TileNoise::Corner(int i, int j, double du, double dv) const
{
    Knot const& knot = m_knots[Place(i, j)];
    return knot.value + knot.slopeU * du + knot.slopeV * dv;
}

double TileNoise::At(double u, double v) const
{
    double const x = (u - std::floor(u)) * m_cells;
    double const y = (v - std::floor(v)) * m_cells;
    int const i = static_cast<int>(x);
    int const j = static_cast<int>(y);
    double const du = x - i;
    double const dv = y - j;
    double const upper = Mix(Corner(i, j, du, dv), Corner(i + 1, j, du - 1.0, dv), Fade(du));
    double const lower =
        Mix(Corner(i, j + 1, du, dv - 1.0), Corner(i + 1, j + 1, du - 1.0, dv - 1.0), Fade(du));
    return Mix(upper, lower, Fade(dv));
}

TileClouds::TileClouds(int cells, int layers, double gain, std::uint64_t seed) : m_gain(gain)
{
    double weight = 1.0;
    double total = 0.0;
    int count = cells;
    for (int i = 0; i < layers; ++i)
    {
        m_layers.emplace_back(count, seed + static_cast<std::uint64_t>(i));
        // Odd counts: the knots of different layers then fall together on the edges alone.
        count = 2 * count + 1;
        total += weight * weight;
        weight *= gain;
    }
    m_scale = 1.6 / std::sqrt(total);
}

double TileClouds::At(double u, double v) const
{
    double sum = 0.0;
    double weight = m_scale;
    for (TileNoise const& layer : m_layers)
    {
        sum += weight * layer.At(u, v);
        weight *= m_gain;
    }
    return sum;
}

double AwayFromEdges(double u, double v)
{
    double const a = Sine(0.5 * u);
    double const b = Sine(0.5 * v);
    double const distance = a * a * b * b;
    return distance / (distance + 0.03);
}

} // namespace maker
