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
using Mode = RunLoop::Mode;

// Runs passes of the default mode until the condition holds or a second is over.
template <typename Condition>
bool RunUntil(Condition const& condition)
{
    std::uint64_t const start = platform::UpTime();
    while (!condition() && platform::SecondsBetween(start, platform::UpTime()) < 1.0)
    {
        RunLoop::current().runTimersOnce(Mode::Default);
    }
    return condition();
}

TEST(RunLoopTest, TimerOfZeroSecondsFiresAtEveryPass)
{
    int count = 0;
    auto const timer = Timer::scheduledTimer(0.0, [&count] { ++count; });
    for (int pass = 1; pass <= 5; ++pass)
    {
        RunLoop::current().runTimersOnce(Mode::Default);
        EXPECT_EQ(count, pass);
    }
    timer->invalidate();
    RunLoop::current().runTimersOnce(Mode::Default);
    EXPECT_EQ(count, 5);
}

TEST(RunLoopTest, TimerIsNotDueBeforeItsInterval)
{
    int count = 0;
    auto const timer = Timer::scheduledTimer(3600.0, [&count] { ++count; });
    RunLoop::current().runTimersOnce(Mode::Default);
    EXPECT_EQ(count, 0);
    double const wait = RunLoop::current().secondsUntilNextTimer(Mode::Default);
    EXPECT_GT(wait, 3590.0);
    EXPECT_LE(wait, 3600.0);
    timer->invalidate();
    EXPECT_TRUE(std::isinf(RunLoop::current().secondsUntilNextTimer(Mode::Default)));
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
    RunLoop::current().runTimersOnce(Mode::Default);
    EXPECT_EQ(count, 1);
    EXPECT_GT(RunLoop::current().secondsUntilNextTimer(Mode::Default), 0.0);
    timer->invalidate();
}

TEST(RunLoopTest, TimerInSeveralModesIsOneTimer)
{
    int count = 0;
    auto const timer = Timer::scheduledTimer(0.0, [&count] { ++count; });
    RunLoop::current().addTimer(timer, Mode::EventTracking);
    RunLoop::current().addTimer(timer, Mode::Default);
    RunLoop::current().runTimersOnce(Mode::Default);
    EXPECT_EQ(count, 1);
    RunLoop::current().runTimersOnce(Mode::EventTracking);
    EXPECT_EQ(count, 2);
    RunLoop::current().runTimersOnce(Mode::ModalPanel);
    EXPECT_EQ(count, 2);
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
    RunLoop::current().runTimersOnce(Mode::Default);
    RunLoop::current().runTimersOnce(Mode::Default);
    EXPECT_EQ(ownCount, 1);
    EXPECT_EQ(otherCount, 0);
    EXPECT_FALSE(own->isValid());
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
    RunLoop::current().runTimersOnce(Mode::Default);
    RunLoop::current().runTimersOnce(Mode::Default);
    EXPECT_GE(count, 1);
    first->invalidate();
    added->invalidate();
}

} // namespace
