// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Random.h"

#include <cstdint>
#include <cstdlib>

namespace platform
{

#if RAND_MAX >= 0x7FFFFFFF

void SeedRandom(unsigned seed)
{
    std::srand(seed);
}

int Random31()
{
    return std::rand();
}

#else

// Where rand() is shorter: the 64-bit linear congruential generator with Knuth's MMIX constants, upper bits.
namespace
{
std::uint64_t state = 1;
}

void SeedRandom(unsigned seed)
{
    state = seed;
}

int Random31()
{
    state = state * 6364136223846793005U + 1442695040888963407U;
    return static_cast<int>(state >> 33U);
}

#endif

} // namespace platform
