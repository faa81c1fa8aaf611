// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The run loop of the main thread: repeating timers. Events are handled between two passes, so that a timer's
// action and an event never overlap.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace platform
{

// A repeating timer. The run loop keeps it alive until invalidate().
class Timer
{
public:
    // interval: seconds; 0 fires at every pass.
    static std::shared_ptr<Timer> scheduledTimer(double interval, std::function<void()> action);

    Timer(double interval, std::function<void()> action);

    // Takes the timer off the run loop for good. May be called from its own action.
    void invalidate() { m_valid = false; }

private:
    friend class RunLoop;
    void fireIfDue(std::uint64_t now);

    std::uint64_t m_interval; // nanoseconds
    std::uint64_t m_nextFire; // nanoseconds of UpTime()
    std::function<void()> m_action;
    bool m_valid = true;
};

class RunLoop
{
public:
    // Fires each timer that is due, once. A timer that fell behind skips what it missed.
    static void runTimersOnce();

    // Seconds until the next timer is due, 0 when one is, infinity when there is none.
    static double secondsUntilNextTimer();
};

} // namespace platform
