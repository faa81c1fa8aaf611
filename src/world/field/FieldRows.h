// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the scene needs to know of the asteroid field, close together: which cells are filled, a bit each, in
// rows along z, and with what size. Universe fills it; the scene walks it.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

class FieldRows
{
public:
    static constexpr int kSize = 16;      // cells of a row, and rows along x and y, before the field repeats
    static constexpr int kLevelCount = 8; // variants of every row, the sparsest first

    // x, y, z: 0..15.
    void Add(int x, int y, int z, int level, int sizeClass)
    {
        std::size_t const row = RowOf(x, y, level);
        m_filled[row] = static_cast<std::uint16_t>(m_filled[row] | 1U << static_cast<unsigned>(z));
        m_sizeClasses[row][static_cast<std::size_t>(z)] = static_cast<std::uint8_t>(sizeClass);
    }

    // The filled cells of the endless lattice between (x, y, first) and (x, y, last), both included, in
    // order: visit(z, sizeClass). No coordinate is negative.
    template <typename Visit>
    void ForEachIn(int x, int y, int first, int last, Visit const& visit) const
    {
        for (int begin = first - first % kSize; begin <= last; begin += kSize)
        {
            std::size_t const row = RowOf(x, y, std::min({x, y, begin, kDeepest}) / kSize);
            for (unsigned left = m_filled[row] & Between(first - begin, last - begin); left != 0;
                 left &= left - 1U)
            {
                auto const z = static_cast<std::size_t>(std::countr_zero(left));
                visit(begin + static_cast<int>(z), m_sizeClasses[row][z]);
            }
        }
    }

private:
    static constexpr int kDeepest = (kLevelCount - 1) * kSize; // from here on all is of the last level
    static constexpr std::size_t kRowCount = std::size_t{kSize} * kSize * kLevelCount;

    static std::size_t RowOf(int x, int y, int level)
    {
        int const row = (level * kSize + x % kSize) * kSize + y % kSize;
        return static_cast<std::size_t>(row);
    }

    // The bits from first to last, as far as there are.
    static unsigned Between(int first, int last)
    {
        unsigned const from = 0xFFFFU << static_cast<unsigned>(std::max(first, 0));
        return last < kSize - 1 ? from & ~(0xFFFFFFFFU << static_cast<unsigned>(last + 1)) : from;
    }

    std::array<std::uint16_t, kRowCount> m_filled{};
    std::array<std::array<std::uint8_t, kSize>, kRowCount> m_sizeClasses{};
};
