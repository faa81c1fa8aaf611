// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The C library's random sequence, in its full 31-bit range on every platform.
#pragma once

namespace platform
{

// Starts the sequence anew; the same seed gives the same sequence on one platform.
void SeedRandom(unsigned seed);

// The next number, 0 to 2^31 - 1.
int Random31();

} // namespace platform
