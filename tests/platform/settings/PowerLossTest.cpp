// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A game that is killed while it saves: what lies on the disk is the old file or the new one, whole.
#include "platform/settings/Preferences.h"
#include "platform/settings/PreferencesFolder.h"
#include "support/Rounds.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace
{

namespace fs = std::filesystem;
using platform::Preferences;
using PowerLossTest = PreferencesFolder;

// Saves one generation of settings and times after the other, and writes the number of each that is saved to
// the pipe.
[[noreturn]] void SaveForEver(fs::path const& file, int first, int pipe)
{
    Preferences preferences(file);
    for (int generation = first;; ++generation)
    {
        preferences.setValue("Number", generation);
        preferences.setValue("Real", static_cast<float>(generation));
        preferences.setValue("Text", std::to_string(generation));
        preferences.setValue("RaceTimes", std::vector<int>(5, generation));
        if (!preferences.synchronize() || write(pipe, &generation, sizeof generation) != sizeof generation)
        {
            _exit(1);
        }
    }
}

// Kills a process that saves after that time. The last generation that it reported as saved, or 0.
int KilledAfter(std::chrono::microseconds time, fs::path const& file, int first)
{
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    pid_t const game = fork();
    if (game == 0)
    {
        SaveForEver(file, first, ends[1]);
    }
    close(ends[1]);
    std::this_thread::sleep_for(time);
    kill(game, SIGKILL);
    int status = 0;
    EXPECT_EQ(waitpid(game, &status, 0), game);
    EXPECT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
    int last = 0;
    while (read(ends[0], &last, sizeof last) == sizeof last)
    {
    }
    close(ends[0]);
    return last;
}

TEST_F(PowerLossTest, KilledAtAnyMomentItLeavesAWholeFile)
{
    constexpr int kKills = test::Rounds(500);
    // Microseconds; long enough for most to be killed during a later save than the first.
    constexpr int kLongest = 20000;
    std::mt19937 random(20260101);
    std::uniform_int_distribution<int> moment(0, kLongest);
    int stored = 0;
    for (int i = 0; i < kKills; ++i)
    {
        SCOPED_TRACE(i);
        int const told =
            std::max(stored, KilledAfter(std::chrono::microseconds(moment(random)), file(), stored + 1));
        Preferences const preferences(file());
        stored = preferences.integerForKey("Number");
        EXPECT_GE(stored, told);
        EXPECT_LE(stored, told + 1);
        if (stored > 0)
        {
            EXPECT_EQ(preferences.floatForKey("Real"), static_cast<float>(stored));
            EXPECT_EQ(preferences.stringForKey("Text"), std::to_string(stored));
            EXPECT_EQ(preferences.integerArrayForKey("RaceTimes"), std::vector<int>(5, stored));
        }
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(stored, kKills / 10) << "hardly any of them came to save";
    for (std::string const& name : others())
    {
        EXPECT_EQ(name.find("broken"), std::string::npos) << name;
    }
}

} // namespace
