// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/AsteroidField.h"

#include "math/util.h"
#include "settings/GameSettings.h"

#include <cmath>

// One draw for each cell, level outermost, then x, y and z.
AsteroidField::AsteroidField(Universe const* universe)
{
    Roid::ReadSettings();
    Roid::Sizes const sizes = Roid::SizesFromSettings();
    m_greatestRadius = std::fmax(std::fabs(sizes.minR), std::fabs(sizes.maxR));
    float const edge = GameSettings::GetFloatParam(setting::kAsteroidsDensityEdge);
    float const centre = GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter);
    m_roids.reserve(m_rows.size() * kSize);
    for (std::size_t row = 0; row < m_rows.size(); ++row)
    {
        std::size_t const level = row / kRowsOfLevel;
        float const density =
            edge + static_cast<float>(level) * (centre - edge) / static_cast<float>(kLevelCount - 1);
        FillRow(row, density, universe, sizes);
    }
}

void AsteroidField::FillRow(std::size_t index, float density, Universe const* universe,
                            Roid::Sizes const& sizes)
{
    auto const x = static_cast<float>(index / kSize % kSize);
    auto const y = static_cast<float>(index % kSize);
    Row& row = m_rows[index];
    row.first = static_cast<std::uint16_t>(m_roids.size());
    for (std::size_t z = 0; z < kSize; ++z)
    {
        if (density >= Rand())
        {
            Roid& roid = m_roids.emplace_back(universe, sizes);
            roid.MoveTo(x, y, static_cast<float>(z));
            row.filled = static_cast<std::uint16_t>(row.filled | 1U << z);
            row.sizeClasses[z] = static_cast<std::uint8_t>(roid.GetSizeClass());
        }
    }
}

Roid const* AsteroidField::RoidAt(int x, int y, int z) const
{
    int const depth = std::min({x, y, z});
    if (depth < 0)
    {
        return nullptr;
    }
    Row const& row = RowAt(x, y, depth);
    unsigned const bit = 1U << static_cast<unsigned>(z % kSize);
    return (row.filled & bit) != 0 ? FirstIn(row, bit) : nullptr;
}
