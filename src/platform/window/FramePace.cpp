// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/FramePace.h"

#include "platform/base/Clock.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace platform
{

void FramePace::waitForRefresh(int refreshRate)
{
    constexpr std::uint64_t kSecond = 1'000'000'000; // nanoseconds
    constexpr int kUsualRate = 60;
    std::uint64_t const period = kSecond / static_cast<unsigned>(refreshRate > 0 ? refreshRate : kUsualRate);
    std::uint64_t const now = UpTime();
    m_refresh = std::max(now, m_refresh + period);
    std::this_thread::sleep_for(std::chrono::nanoseconds(m_refresh - now));
}

} // namespace platform
