// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How many rounds a random test runs.
#pragma once

namespace test
{

// That many in a release; a tenth of it without optimisation or under the sanitizers, where a round takes ten
// times as long.
constexpr int Rounds(int inARelease)
{
#if defined(NDEBUG)
    return inARelease;
#else
    return inARelease / 10;
#endif
}

} // namespace test
