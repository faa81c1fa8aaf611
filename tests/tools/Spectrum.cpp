// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A two-dimensional Fourier transform: rows first, then columns.
#include "Spectrum.h"

#include "common/Fourier.h"

#include <algorithm>

namespace
{

using namespace maker;

double Grey(Vector const& colour)
{
    return (colour.x + colour.y + colour.z) / 3.0;
}

std::vector<Waves> WavesIn(Picture const& picture)
{
    auto const size = static_cast<std::size_t>(picture.Width());
    std::vector<Waves> rows(size, Waves(size));
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = Grey(picture.At(x, y));
        }
    }
    for (Waves& row : rows)
    {
        Transform(row);
    }
    for (std::size_t x = 0; x < size; ++x)
    {
        Waves column;
        for (Waves const& row : rows)
        {
            column.push_back(row[x]);
        }
        Transform(column);
        for (std::size_t y = 0; y < size; ++y)
        {
            rows[y][x] = column[y];
        }
    }
    return rows;
}

// Periods across the picture of the wave at a place in the transform, which counts backwards from its middle
// on.
double Periods(std::size_t place, std::size_t size)
{
    return static_cast<double>(std::min(place, size - place));
}

} // namespace

double StrongestWaveOverMean(maker::Picture const& picture, int fewest)
{
    std::vector<Waves> const waves = WavesIn(picture);
    std::size_t const size = waves.size();
    std::vector<double> sums(size);
    std::vector<double> counts(size);
    std::vector<double> strongest(size);
    for (std::size_t y = 0; y < size; ++y)
    {
        for (std::size_t x = 0; x < size; ++x)
        {
            auto const ring = static_cast<std::size_t>(std::hypot(Periods(x, size), Periods(y, size)));
            double const power = std::norm(waves[y][x]);
            sums[ring] += power;
            counts[ring] += 1.0;
            strongest[ring] = std::max(strongest[ring], power);
        }
    }
    double worst = 0.0;
    // The last rings are the corners of the square, with too few waves for a mean.
    for (auto ring = static_cast<std::size_t>(fewest); ring < size * 7 / 10; ++ring)
    {
        worst = std::max(worst, strongest[ring] * counts[ring] / sums[ring]);
    }
    return worst;
}
