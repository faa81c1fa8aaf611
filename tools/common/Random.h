// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Numbers from a seed (SplitMix64): the same seed gives the same sequence everywhere. Draw each number into a
// variable of its own: within one expression the order of two draws is the compiler's choice.
#pragma once

#include "common/Maths.h"

#include <cstdint>

namespace maker
{

// Turns neighbouring integers into unrelated ones.
inline std::uint64_t Scramble(std::uint64_t z)
{
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}

// The upper bits as a number from 0 to just below 1.
inline double ToUnit(std::uint64_t bits)
{
    return static_cast<double>(bits >> 11) / 9007199254740992.0;
}

class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(Scramble(seed + 0x2545F4914F6CDD1DULL)) {}

    std::uint64_t Bits()
    {
        m_state += 0x9E3779B97F4A7C15ULL;
        return Scramble(m_state);
    }

    // 0 to just below 1.
    double Unit() { return ToUnit(Bits()); }

    double Range(double low, double high) { return low + (high - low) * Unit(); }

    // -1 to 1.
    double Noise() { return 2.0 * Unit() - 1.0; }

    // Mean 0, deviation 1 (after Box and Muller).
    double Normal()
    {
        double const radius = std::sqrt(-2.0 * kLn2 * Log2(1.0 - Unit()));
        double const turn = Unit();
        return radius * Sine(turn);
    }

private:
    std::uint64_t m_state;
};

} // namespace maker
