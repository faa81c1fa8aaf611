// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The monotonic clock.
#pragma once

#include <cstdint>

namespace platform
{

// Nanoseconds since an arbitrary start; never goes back and does not follow changes of the calendar time.
std::uint64_t UpTime();

// Seconds from one reading to a later one.
double SecondsBetween(std::uint64_t earlier, std::uint64_t later);

} // namespace platform
