// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Clock.h"

#include <chrono>

namespace platform
{

std::uint64_t UpTime()
{
    auto const sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::nanoseconds(sinceStart).count());
}

double SecondsBetween(std::uint64_t earlier, std::uint64_t later)
{
    return static_cast<double>(static_cast<std::int64_t>(later - earlier)) * 1e-9;
}

} // namespace platform
