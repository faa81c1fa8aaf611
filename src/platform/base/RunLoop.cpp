// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/RunLoop.h"

#include "platform/base/Clock.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace platform
{

namespace
{

// The timers of the main thread's run loop, the only one.
std::vector<std::shared_ptr<Timer>>& Timers()
{
    static std::vector<std::shared_ptr<Timer>> timers;
    return timers;
}

} // namespace

std::shared_ptr<Timer> Timer::scheduledTimer(double interval, std::function<void()> action)
{
    return Timers().emplace_back(std::make_shared<Timer>(interval, std::move(action)));
}

Timer::Timer(double interval, std::function<void()> action)
    : m_interval(static_cast<std::uint64_t>(std::llround(interval * 1e9))),
      m_nextFire(UpTime() + m_interval),
      m_action(std::move(action))
{
}

void Timer::fireIfDue(std::uint64_t now)
{
    if (!m_valid || now < m_nextFire)
    {
        return;
    }
    if (m_interval > 0)
    {
        // The next point of the timer's own grid that still lies ahead.
        m_nextFire += ((now - m_nextFire) / m_interval + 1) * m_interval;
    }
    m_action();
}

void RunLoop::runTimersOnce()
{
    auto const timers = Timers(); // a copy: an action may add timers
    for (auto const& timer : timers)
    {
        timer->fireIfDue(UpTime());
    }
    std::erase_if(Timers(), [](auto const& timer) { return !timer->m_valid; });
}

double RunLoop::secondsUntilNextTimer()
{
    std::uint64_t const now = UpTime();
    double soonest = std::numeric_limits<double>::infinity();
    for (auto const& timer : Timers())
    {
        if (timer->m_valid)
        {
            soonest = std::min(soonest, std::max(0.0, SecondsBetween(now, timer->m_nextFire)));
        }
    }
    return soonest;
}

} // namespace platform
