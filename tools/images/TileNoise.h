// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Smooth noise on a square tile that repeats in both directions, for the sky.
//
// The sky box folds the tile at its edges in every way: the left edge of one face meets the upper or the
// mirrored edge of another. So along the two lines u = 0 and v = 0 the noise is the same, and the same from
// either end; all faces then meet in equal colours.
#pragma once

#include <cstdint>
#include <vector>

namespace maker
{

class TileNoise
{
public:
    // cells: how many features there are across the tile
    TileNoise(int cells, std::uint64_t seed);

    // About -1 to 1, mean 0; u and v in tiles, any value.
    double At(double u, double v) const;

private:
    struct Knot
    {
        double value;
        double slopeU;
        double slopeV;
    };

    Knot& KnotAt(int i, int j) { return m_knots[Place(i, j)]; }
    std::size_t Place(int i, int j) const;
    double Corner(int i, int j, double du, double dv) const;
    void FoldEdges();

    int m_cells;
    std::vector<Knot> m_knots;
};

// Layers of TileNoise, each with about twice the cells of the last and its weight times gain; about -1 to 1.
class TileClouds
{
public:
    TileClouds(int cells, int layers, double gain, std::uint64_t seed);

    double At(double u, double v) const;

private:
    std::vector<TileNoise> m_layers;
    double m_gain;
    double m_scale;
};

// 0 on the tile's edges, 1 away from them. What is shifted in proportion to it leaves the edges where they
// are.
double AwayFromEdges(double u, double v);

} // namespace maker
