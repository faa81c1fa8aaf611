// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/FramePace.h"

#include "platform/base/Clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace
{

using platform::FramePace;

constexpr int kRate = 50;            // refreshes a second
constexpr double kPeriod = 1.0 / 50; // seconds

void Work(double seconds)
{
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

// Seconds that the frames take, each with its work. At a refresh at the start.
double SecondsOf(FramePace& pace, int frames, double work, int rate = kRate)
{
    std::uint64_t const begin = platform::UpTime();
    for (int i = 0; i < frames; ++i)
    {
        Work(work);
        pace.waitForRefresh(rate);
    }
    return platform::SecondsBetween(begin, platform::UpTime());
}

FramePace AtARefresh()
{
    FramePace pace;
    pace.waitForRefresh(kRate);
    return pace;
}

TEST(FramePaceTest, FramesAreARefreshApart)
{
    FramePace pace = AtARefresh();
    EXPECT_GE(SecondsOf(pace, 10, 0.0), 9.9 * kPeriod);
}

TEST(FramePaceTest, DisplayWithoutARateCountsAsSixtyASecond)
{
    FramePace pace = AtARefresh();
    double const seconds = SecondsOf(pace, 12, 0.0, 0);
    EXPECT_GE(seconds, 11.9 / 60.0);
}

// On a busy machine a sleep may last longer, hence the quickest of some.
TEST(FramePaceTest, WorkBetweenRefreshesDoesNotDelayThem)
{
    double quickest = 1.0;
    for (int i = 0; i < 5; ++i)
    {
        FramePace pace = AtARefresh();
        quickest = std::min(quickest, SecondsOf(pace, 10, kPeriod / 2.0));
    }
    EXPECT_LT(quickest, 11.0 * kPeriod);
}

TEST(FramePaceTest, LateFrameIsNotFollowedByHastyOnes)
{
    FramePace pace = AtARefresh();
    Work(3.5 * kPeriod);
    pace.waitForRefresh(kRate);
    EXPECT_GE(SecondsOf(pace, 2, 0.0), 2.0 * kPeriod - 0.5 * kPeriod);
}

} // namespace
