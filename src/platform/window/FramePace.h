// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The pace of a display whose driver does not wait for it: its refreshes by the clock.
#pragma once

#include <cstdint>

namespace platform
{

class FramePace
{
public:
    // Sleeps until the next refresh, one period after the last. A frame that missed it is shown at once, and
    // the refreshes go on from there, so that no hasty frames follow. refreshRate: refreshes a second; 0,
    // where the display tells none, counts as 60.
    void waitForRefresh(int refreshRate);

private:
    std::uint64_t m_refresh = 0; // the last one, nanoseconds of UpTime()
};

} // namespace platform
