// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The one run loop of the main thread: repeating timers by mode. Application pumps the events between two
// passes, so a timer's action and an event never overlap.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace platform
{

// A repeating timer. It fires only while it is on a run loop, and never after invalidate().
class Timer
{
public:
    // Makes a timer and adds it to the current run loop in the default mode. interval: seconds; 0 fires at
    // every pass.
    static std::shared_ptr<Timer> scheduledTimer(double interval, std::function<void()> action);

    Timer(double interval, std::function<void()> action);

    // Takes the timer off its run loops for good. May be called from its own action.
    void invalidate();
    bool isValid() const { return m_valid; }

private:
    friend class RunLoop;
    void fireIfDue(std::uint64_t now);

    std::uint64_t m_interval; // nanoseconds
    std::uint64_t m_nextFire;
    std::function<void()> m_action;
    bool m_valid = true;
};

class RunLoop
{
public:
    enum class Mode
    {
        Default,
        EventTracking,
        ModalPanel,
    };

    static RunLoop& current();

    void addTimer(std::shared_ptr<Timer> const& timer, Mode mode);

    // Fires each timer of the mode that is due, once. A timer that fell behind skips what it missed.
    void runTimersOnce(Mode mode);

    // Seconds until the next timer of the mode is due, 0 when one is, infinity when there is none.
    double secondsUntilNextTimer(Mode mode) const;

private:
    struct Entry
    {
        std::shared_ptr<Timer> timer;
        Mode mode;
    };
    std::vector<Entry> m_entries;
};

} // namespace platform
