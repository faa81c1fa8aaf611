// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "settings/RaceTimes.h"

#include "platform/settings/Preferences.h"
#include "settings/GameSettings.h"
#include "support/Stage.h"
#include "ui/MenuGame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using testing::ElementsAre;

TEST(MergedRaceTimes, TimeOfEachGameIsKept)
{
    EXPECT_THAT(MergedRaceTimes({0, 0, 0, 0, 0}, {95, 0, 0, 0, 0}, {83, 0, 0, 0, 0}),
                ElementsAre(83, 95, 0, 0, 0));
    EXPECT_THAT(MergedRaceTimes({60, 70, 0, 0, 0}, {60, 65, 70, 0, 0}, {50, 60, 70, 0, 0}),
                ElementsAre(50, 60, 65, 70, 0));
}

TEST(MergedRaceTimes, SameTimeInBothGamesIsTwoRaces)
{
    EXPECT_THAT(MergedRaceTimes({80, 0, 0, 0, 0}, {80, 90, 0, 0, 0}, {80, 90, 0, 0, 0}),
                ElementsAre(80, 90, 90, 0, 0));
}

TEST(MergedRaceTimes, FiveBestOfAllStay)
{
    EXPECT_THAT(MergedRaceTimes({60, 70, 80, 90, 100}, {60, 65, 70, 80, 90}, {60, 70, 75, 80, 90}),
                ElementsAre(60, 65, 70, 75, 80));
}

TEST(MergedRaceTimes, TimeThatTheOtherGamePushedOutStaysOut)
{
    EXPECT_THAT(MergedRaceTimes({60, 70, 80, 90, 100}, {60, 70, 80, 90, 95}, {10, 20, 30, 40, 50}),
                ElementsAre(10, 20, 30, 40, 50));
}

TEST(MergedRaceTimes, ClearedTableKeepsOnlyWhatTheOtherGameAdded)
{
    EXPECT_THAT(MergedRaceTimes({60, 70, 0, 0, 0}, {0, 0, 0, 0, 0}, {60, 65, 70, 0, 0}),
                ElementsAre(65, 0, 0, 0, 0));
    EXPECT_THAT(MergedRaceTimes({60, 70, 0, 0, 0}, {60, 65, 70, 0, 0}, {0, 0, 0, 0, 0}),
                ElementsAre(65, 0, 0, 0, 0));
}

// Ends as soon as its time is on the disk.
[[noreturn]] void FinishARaceInAnotherGame(int seconds)
{
    Menu::SetCurrent(new MenuEndGame(seconds));
    bool const saved = platform::Preferences::standard().synchronize();
    _exit(saved ? 0 : 1);
}

TEST_F(Stage, TimesOfTwoRunningGamesBothRank)
{
    GameSettings::SetIntArrayParam(setting::kRaceTimes, nullptr, 0);
    ASSERT_TRUE(platform::Preferences::standard().synchronize());
    std::array<pid_t, 2> games{};
    for (std::size_t i = 0; i < games.size(); ++i)
    {
        games[i] = fork();
        if (games[i] == 0)
        {
            FinishARaceInAnotherGame(i == 0 ? 95 : 83);
        }
    }
    for (pid_t const game : games)
    {
        int status = -1;
        ASSERT_EQ(waitpid(game, &status, 0), game);
        ASSERT_EQ(status, 0);
    }
    Menu::SetCurrent(new MenuEndGame(120));
    ASSERT_TRUE(platform::Preferences::standard().synchronize());
    std::array<int, 5> times{};
    GameSettings::GetIntArrayParam(setting::kRaceTimes, times.data(), 5);
    EXPECT_THAT(times, ElementsAre(83, 95, 120, 0, 0));
}

} // namespace
