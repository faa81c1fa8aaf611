// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The C library's random sequence.
#pragma once

#include <cstdlib>

namespace platform
{

static_assert(RAND_MAX == 0x7FFFFFFF, "world and course are made from numbers of 31 bits");

// Starts the sequence anew; the same seed gives the same sequence on one platform.
inline void SeedRandom(unsigned seed)
{
    std::srand(seed);
}

// The next number, 0 to 2^31 - 1.
inline int Random31()
{
    return std::rand();
}

} // namespace platform
