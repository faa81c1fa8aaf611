// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// White noise from a seed: the same seed gives the same sequence everywhere.
#pragma once

#include <cstdint>

namespace music
{

class Noise
{
public:
    explicit Noise(std::uint64_t seed) : m_state(seed * 0x9E3779B97F4A7C15ULL + 0x2545F4914F6CDD1DULL) {}

    // The next value, -1 to 1.
    double Next()
    {
        m_state += 0x9E3779B97F4A7C15ULL;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        z ^= z >> 31;
        return static_cast<double>(static_cast<std::int64_t>(z >> 11)) / 4503599627370496.0 - 1.0;
    }

private:
    std::uint64_t m_state;
};

} // namespace music
