// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Which cells of a field hold an asteroid, sixteen to a look: one bit for each cell of a row, for rows along
// every axis. PathSearch reads it where most of the cells on its way are empty.
#pragma once

#include "world/Universe.h"

#include <array>
#include <cstdint>

using FieldCell = std::array<int, 3>; // x, y, z of the endless lattice

class FilledCells
{
public:
    // Of the field as it stands.
    explicit FilledCells(Universe const& universe);

    bool IsEmpty() const { return m_empty; }
    float GreatestRadius() const { return m_greatestRadius; } // of all asteroids

    // The sixteen cells of that row that the given one belongs to: bit i is set where the cell at 16 n + i
    // along the axis is filled. The cell has no negative coordinate.
    unsigned Occupied(int axis, FieldCell const& cell) const;

private:
    static constexpr int kSize = Universe::kFieldSize;
    using Rows = std::array<std::array<std::array<std::uint16_t, kSize>, kSize>, Universe::kLevelCount>;

    void Note(FieldCell const& cell, int level);

    std::array<Rows, 3> m_rows{}; // of an axis: level, then the two other coordinates in their order
    float m_greatestRadius = 0.0F;
    bool m_empty = true;
};
