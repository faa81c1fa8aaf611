// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The asteroids: a lattice of 16 x 16 x 16 cells, one unit apart, that repeats without end along the positive
// axes. Which of eight variants of a cell stands at a place depends on how deep the place lies in the field.
// Space with a negative coordinate is empty.
#pragma once

#include "gfx/Roid.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

class AsteroidField
{
public:
    static constexpr int kSize = 16;      // cells along an axis before the field repeats
    static constexpr int kLevelCount = 8; // variants of a cell, the sparsest first

    // Reads the settings and draws the asteroids from the random sequence: a seed always gives the same
    // field. An OpenGL context is current.
    explicit AsteroidField(Universe const* universe);

    // The variant at a depth: one level for each 16 units, at most 7.
    static int CoordToDensity(int c) { return std::min(c / kSize, kLevelCount - 1); }

    // The asteroid of a cell, null where the cell is empty. One asteroid serves all the repetitions of its
    // cell; its own position is in the first of them.
    Roid const* RoidAt(int x, int y, int z) const;

    // The filled cells between (x, y, first) and (x, y, last), both included, in order:
    // visit(z, sizeClass, asteroid). No coordinate is negative.
    template <typename Visit>
    void ForEachIn(int x, int y, int first, int last, Visit const& visit) const
    {
        for (int begin = first - first % kSize; begin <= last; begin += kSize)
        {
            Row const& row = RowAt(x, y, std::min({x, y, begin}));
            unsigned left = row.filled & Between(first - begin, last - begin);
            Roid const* roid = left != 0 ? FirstIn(row, left) : nullptr;
            for (; left != 0; left &= left - 1U, ++roid)
            {
                auto const z = static_cast<std::size_t>(std::countr_zero(left));
                visit(begin + static_cast<int>(z), row.sizeClasses[z], *roid);
            }
        }
    }

    float GetGreatestRadius() const { return m_greatestRadius; } // that any asteroid can have

private:
    // Sixteen cells along z, of one level.
    struct Row
    {
        std::uint16_t filled = 0;                      // a bit for each cell
        std::uint16_t first = 0;                       // index of the asteroid in the first filled cell
        std::array<std::uint8_t, kSize> sizeClasses{}; // here too: reading them from the asteroids is slow
    };

    static constexpr std::size_t kRowsOfLevel = std::size_t{kSize} * kSize;

    void FillRow(std::size_t index, float density, Universe const* universe, Roid::Sizes const& sizes);

    Row const& RowAt(int x, int y, int depth) const
    {
        int const row = (CoordToDensity(depth) * kSize + x % kSize) * kSize + y % kSize;
        return m_rows[static_cast<std::size_t>(row)];
    }

    // The asteroid of the lowest of some filled cells.
    Roid const* FirstIn(Row const& row, unsigned cells) const
    {
        unsigned const before = row.filled & ((cells & (0U - cells)) - 1U);
        return &m_roids[row.first + static_cast<std::size_t>(std::popcount(before))];
    }

    // The bits from first to last, as far as a row has them.
    static unsigned Between(int first, int last)
    {
        unsigned const from = 0xFFFFU << static_cast<unsigned>(std::max(first, 0));
        return last < kSize - 1 ? from & ~(0xFFFFFFFFU << static_cast<unsigned>(last + 1)) : from;
    }

    std::array<Row, kRowsOfLevel * kLevelCount> m_rows; // by level, x and y
    std::vector<Roid> m_roids;                          // row after row
    float m_greatestRadius;
};
