// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/FilledCells.h"

#include "gfx/Roid.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int kFirstOther[3] = {1, 0, 0};
constexpr int kSecondOther[3] = {2, 2, 1};

std::size_t Within(int coordinate)
{
    return static_cast<std::size_t>(coordinate % Universe::kFieldSize);
}

} // namespace

FilledCells::FilledCells(Universe const& universe)
{
    for (int level = 0; level < Universe::kLevelCount; ++level)
    {
        int const depth = level * kSize; // a block of sixteen cells each way on the diagonal has one level
        for (int cell = 0; cell < kSize * kSize * kSize; ++cell)
        {
            FieldCell const place{cell / (kSize * kSize), cell / kSize % kSize, cell % kSize};
            if (Roid const* const roid =
                    universe.RoidAtCell(place[0] + depth, place[1] + depth, place[2] + depth))
            {
                Note(place, level);
                m_greatestRadius = std::max(m_greatestRadius, std::fabs(roid->GetRadius()));
            }
        }
    }
}

void FilledCells::Note(FieldCell const& cell, int level)
{
    m_empty = false;
    for (std::size_t axis = 0; axis < 3; ++axis)
    {
        auto const first = static_cast<std::size_t>(cell[static_cast<std::size_t>(kFirstOther[axis])]);
        auto const second = static_cast<std::size_t>(cell[static_cast<std::size_t>(kSecondOther[axis])]);
        std::uint16_t& row = m_rows[axis][static_cast<std::size_t>(level)][first][second];
        row = static_cast<std::uint16_t>(row | 1U << static_cast<unsigned>(cell[axis]));
    }
}

unsigned FilledCells::Occupied(int axis, FieldCell const& cell) const
{
    int const level = Universe::CoordToDensity(std::min({cell[0], cell[1], cell[2]}));
    auto const index = static_cast<std::size_t>(axis);
    int const first = cell[static_cast<std::size_t>(kFirstOther[index])];
    int const second = cell[static_cast<std::size_t>(kSecondOther[index])];
    return m_rows[index][static_cast<std::size_t>(level)][Within(first)][Within(second)];
}
