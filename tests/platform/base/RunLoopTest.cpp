// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/RunLoop.h"

#include "platform/base/Clock.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

using platform::RunLoop;
using platform::Timer;

// Runs passes until the condition holds or a second is over.
template <typename Condition>
bool RunUntil(Condition const& condition)
{
    std::uint64_t const start = platform::UpTime();
    while (!condition() && platform::SecondsBetween(start, platform::UpTime()) < 1.0)
    {
        RunLoop::runTimersOnce();
    }
    return condition();
}

TEST(RunLoopTest, TimerOfZeroSecondsFiresAtEveryPass)
{
    int count = 0;
    auto const timer = Timer::scheduledTimer(0.0, [&count] { ++count; });
    for (int pass = 1; pass <= 5; ++pass)
    {
        RunLoop::runTimersOnce();
        EXPECT_EQ(count, pass);
    }
    timer->invalidate();
    RunLoop::runTimersOnce();
    EXPECT_EQ(count, 5);
}

TEST(RunLoopTest, TimerIsNotDueBeforeItsInterval)
{
    int count = 0;
    auto const timer = Timer::scheduledTimer(3600.0, [&count] { ++count; });
    RunLoop::runTimersOnce();
    EXPECT_EQ(count, 0);
    double const wait = RunLoop::secondsUntilNextTimer();
    EXPECT_GT(wait, 3590.0);
    EXPECT_LE(wait, 3600.0);
    timer->invalidate();
    EXPECT_TRUE(std::isinf(RunLoop::secondsUntilNextTimer()));
}

TEST(RunLoopTest, TimerRepeats)
{
    int count = 0;
    auto const timer = Timer::scheduledTimer(0.001, [&count] { ++count; });
    EXPECT_TRUE(RunUntil([&count] { return count >= 3; }));
    timer->invalidate();
}

TEST(RunLoopTest, TimerThatFellBehindFiresOnceAndSkipsTheRest)
{
    int count = 0;
    auto const timer = Timer::scheduledTimer(0.002, [&count] { ++count; });
    std::uint64_t const start = platform::UpTime();
    while (platform::SecondsBetween(start, platform::UpTime()) < 0.02)
    {
    }
    RunLoop::runTimersOnce();
    EXPECT_EQ(count, 1);
    EXPECT_GT(RunLoop::secondsUntilNextTimer(), 0.0);
    timer->invalidate();
}

TEST(RunLoopTest, TimerMayEndItselfAndOthersFromItsAction)
{
    int ownCount = 0;
    int otherCount = 0;
    std::shared_ptr<Timer> own;
    std::shared_ptr<Timer> other;
    own = Timer::scheduledTimer(0.0,
                                [&]
                                {
                                    ++ownCount;
                                    own->invalidate();
                                    other->invalidate();
                                });
    other = Timer::scheduledTimer(0.0, [&otherCount] { ++otherCount; });
    RunLoop::runTimersOnce();
    RunLoop::runTimersOnce();
    EXPECT_EQ(ownCount, 1);
    EXPECT_EQ(otherCount, 0);
    EXPECT_TRUE(std::isinf(RunLoop::secondsUntilNextTimer()));
}

TEST(RunLoopTest, TimerMayBeAddedFromAnAction)
{
    int count = 0;
    std::shared_ptr<Timer> added;
    auto const first = Timer::scheduledTimer(0.0,
                                             [&]
                                             {
                                                 if (!added)
                                                 {
                                                     added =
                                                         Timer::scheduledTimer(0.0, [&count] { ++count; });
                                                 }
                                             });
    RunLoop::runTimersOnce();
    RunLoop::runTimersOnce();
    EXPECT_GE(count, 1);
    first->invalidate();
    added->invalidate();
}

} // namespace
