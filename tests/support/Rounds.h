// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How often a test of chance repeats itself.
#pragma once

namespace test
{

// As often as said in a release; a tenth of that without optimisation or under the sanitizers, where one
// round takes as long as ten.
constexpr int Rounds(int inARelease)
{
#if defined(NDEBUG)
    return inARelease;
#else
    return inARelease / 10;
#endif
}

} // namespace test
