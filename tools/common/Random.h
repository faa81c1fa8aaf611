// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Numbers from a seed (SplitMix64): the same seed gives the same sequence everywhere. Draw each number into a
// variable of its own: within one expression the order of two draws is the compiler's choice.
#pragma once

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
    explicit Random(std::uint64_t seed) : m_state(Scramble(seed + kStart)) {}

    // All places lie on one sequence: place + 1 gives the same numbers without the first.
    static Random From(std::uint64_t place)
    {
        Random random(0);
        random.m_state = place * kStep + kStart;
        return random;
    }

    std::uint64_t Bits()
    {
        m_state += kStep;
        return Scramble(m_state);
    }

    // 0 to just below 1.
    double Unit() { return ToUnit(Bits()); }

    double Range(double low, double high) { return low + (high - low) * Unit(); }

    // -1 to 1.
    double Noise() { return 2.0 * Unit() - 1.0; }

private:
    static constexpr std::uint64_t kStart = 0x2545F4914F6CDD1DULL;
    static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15ULL;

    std::uint64_t m_state;
};

} // namespace maker
