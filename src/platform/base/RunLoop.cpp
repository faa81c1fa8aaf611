// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/RunLoop.h"

#include "platform/base/Clock.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace platform
{

namespace
{

constexpr double kNanosecondsPerSecond = 1e9;

std::uint64_t NanosecondsFromSeconds(double seconds)
{
    return seconds > 0.0 ? static_cast<std::uint64_t>(std::llround(seconds * kNanosecondsPerSecond)) : 0;
}

} // namespace

std::shared_ptr<Timer> Timer::scheduledTimer(double interval, std::function<void()> action)
{
    auto timer = std::make_shared<Timer>(interval, std::move(action));
    RunLoop::current().addTimer(timer, RunLoop::Mode::Default);
    return timer;
}

Timer::Timer(double interval, std::function<void()> action)
    : m_interval(NanosecondsFromSeconds(interval)),
      m_nextFire(UpTime() + m_interval),
      m_action(std::move(action))
{
}

void Timer::invalidate()
{
    m_valid = false;
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

RunLoop& RunLoop::current()
{
    static RunLoop loop;
    return loop;
}

void RunLoop::addTimer(std::shared_ptr<Timer> const& timer, Mode mode)
{
    bool const known =
        std::any_of(m_entries.begin(), m_entries.end(),
                    [&](Entry const& entry) { return entry.timer == timer && entry.mode == mode; });
    if (!known && timer->isValid())
    {
        m_entries.push_back({timer, mode});
    }
}

void RunLoop::runTimersOnce(Mode mode)
{
    std::erase_if(m_entries, [](Entry const& entry) { return !entry.timer->isValid(); });
    // A copy, because an action may add timers and thereby move the entries.
    std::vector<Entry> const entries = m_entries;
    std::uint64_t const now = UpTime();
    for (Entry const& entry : entries)
    {
        if (entry.mode == mode)
        {
            entry.timer->fireIfDue(now);
        }
    }
    std::erase_if(m_entries, [](Entry const& entry) { return !entry.timer->isValid(); });
}

double RunLoop::secondsUntilNextTimer(Mode mode) const
{
    std::uint64_t const now = UpTime();
    double soonest = std::numeric_limits<double>::infinity();
    for (Entry const& entry : m_entries)
    {
        if (entry.mode == mode && entry.timer->isValid())
        {
            soonest = std::min(soonest, std::max(0.0, SecondsBetween(now, entry.timer->m_nextFire)));
        }
    }
    return soonest;
}

} // namespace platform
