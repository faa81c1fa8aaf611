// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A two-dimensional Fourier transform.
#include "Spectrum.h"

#include <algorithm>
#include <complex>
#include <numbers>

namespace
{

using Values = std::vector<std::complex<double>>;

// In place; the size must be a power of two.
void Transform(Values& values)
{
    std::size_t const count = values.size();
    for (std::size_t i = 1, j = 0; i < count; ++i)
    {
        std::size_t bit = count >> 1;
        for (; (j & bit) != 0; bit >>= 1)
        {
            j ^= bit;
        }
        j ^= bit;
        if (i < j)
        {
            std::swap(values[i], values[j]);
        }
    }
    for (std::size_t length = 2; length <= count; length <<= 1)
    {
        std::complex<double> const turn =
            std::polar(1.0, -2.0 * std::numbers::pi / static_cast<double>(length));
        for (std::size_t start = 0; start < count; start += length)
        {
            std::complex<double> factor = 1.0;
            for (std::size_t i = start; i < start + length / 2; ++i, factor *= turn)
            {
                std::complex<double> const odd = values[i + length / 2] * factor;
                values[i + length / 2] = values[i] - odd;
                values[i] += odd;
            }
        }
    }
}

double Grey(maker::Vector const& colour)
{
    return (colour.x + colour.y + colour.z) / 3.0;
}

std::vector<Values> Waves(maker::Picture const& picture)
{
    auto const size = static_cast<std::size_t>(picture.Width());
    std::vector<Values> rows(size, Values(size));
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = Grey(picture.At(x, y));
        }
    }
    for (Values& row : rows)
    {
        Transform(row);
    }
    for (std::size_t x = 0; x < size; ++x)
    {
        Values column;
        for (Values const& row : rows)
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
    std::vector<Values> const waves = Waves(picture);
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
