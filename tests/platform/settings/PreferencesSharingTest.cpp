// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Two running games with one settings file.
#include "platform/settings/Preferences.h"
#include "platform/settings/PreferencesFolder.h"
#include "platform/settings/SettingsFile.h"
#include "support/CapturedLog.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace
{

namespace fs = std::filesystem;
using platform::Preferences;
using testing::ElementsAre;
using testing::IsEmpty;
using PreferencesSharingTest = PreferencesFolder;

TEST_F(PreferencesSharingTest, TwoRunningGamesKeepEachOthersKeys)
{
    Preferences first(file());
    Preferences second(file());
    first.setValue("A", 1);
    second.setValue("B", 2);
    EXPECT_TRUE(first.synchronize());
    EXPECT_TRUE(second.synchronize());
    Preferences const after(file());
    EXPECT_EQ(after.integerForKey("A"), 1);
    EXPECT_EQ(after.integerForKey("B"), 2);
}

// Sets a key after another, saving each.
void WriteKeys(fs::path const& file, std::string const& prefix, int count)
{
    Preferences preferences(file);
    for (int i = 0; i < count; ++i)
    {
        preferences.setValue(prefix + std::to_string(i), i);
        preferences.synchronize();
    }
}

TEST_F(PreferencesSharingTest, GamesThatSaveAtTheSameMomentLoseNothing)
{
    constexpr int kCount = 40;
    std::vector<pid_t> games;
    for (char const* const prefix : {"first", "second"})
    {
        games.push_back(fork());
        if (games.back() == 0)
        {
            WriteKeys(file(), prefix, kCount);
            _exit(0);
        }
    }
    for (pid_t const game : games)
    {
        int status = -1;
        ASSERT_EQ(waitpid(game, &status, 0), game);
        ASSERT_EQ(status, 0);
    }
    Preferences const preferences(file());
    for (int i = 0; i < kCount; ++i)
    {
        std::string const number = std::to_string(i);
        EXPECT_EQ(preferences.integerForKey("first" + number), i);
        EXPECT_EQ(preferences.integerForKey("second" + number), i);
    }
    EXPECT_THAT(others(), IsEmpty());
}

// Otherwise two games at their first start would lose a key when both save at once.
TEST_F(PreferencesSharingTest, FolderThatIsNotThereYetIsHeldAsWell)
{
    fs::path const folder = m_folder / "new" / "quarrow";
    platform::FolderLock const lock(folder);
    int const other = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(other, 0);
    EXPECT_NE(flock(other, LOCK_EX | LOCK_NB), 0);
    close(other);
}

// The number before, and what both games added to it.
std::vector<int> Sum(std::vector<int> const& before, std::vector<int> const& ours,
                     std::vector<int> const& theirs)
{
    return {ours.at(0) + theirs.at(0) - before.at(0)};
}

TEST_F(PreferencesSharingTest, ArrayThatBothChangedIsMerged)
{
    writeSettings("Sum=10;\n");
    Preferences first(file());
    Preferences second(file());
    first.registerMerge("Sum", Sum);
    second.registerMerge("Sum", Sum);
    first.setValue("Sum", std::vector<int>{11});
    second.setValue("Sum", std::vector<int>{13});
    second.setValue("Sum", std::vector<int>{15});
    EXPECT_TRUE(first.synchronize());
    EXPECT_TRUE(second.synchronize());
    EXPECT_THAT(second.integerArrayForKey("Sum"), ElementsAre(16));
    EXPECT_THAT(Preferences(file()).integerArrayForKey("Sum"), ElementsAre(16));
    second.setValue("Sum", std::vector<int>{17});
    EXPECT_TRUE(second.synchronize());
    EXPECT_THAT(Preferences(file()).integerArrayForKey("Sum"), ElementsAre(17)) << "nobody else changed it";
}

TEST_F(PreferencesSharingTest, GameThatHangsAmidItsSaveHoldsNobodyUp)
{
    int const held = open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    Preferences preferences(file());
    preferences.setValue("A", 1);
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_EQ(flock(held, LOCK_UN), 0);
    close(held);
    EXPECT_EQ(Preferences(file()).integerForKey("A"), 1);
}

// Stands for a full disk: while the object exists, no file may be longer than 4096 bytes.
class SmallFilesOnly
{
public:
    SmallFilesOnly() : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit const small{4096, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallFilesOnly()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    SmallFilesOnly(SmallFilesOnly const&) = delete;
    SmallFilesOnly& operator=(SmallFilesOnly const&) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before{};
};

TEST_F(PreferencesSharingTest, MergeIsMadeOnceHoweverOftenTheSaveFails)
{
    writeSettings("Sum=10;\n");
    Preferences first(file());
    first.registerMerge("Sum", Sum);
    first.setValue("Sum", std::vector<int>{11});
    first.setValue("Text", std::string(10000, 'x'));
    writeSettings("Sum=20;\n");
    CapturedLog log;
    {
        SmallFilesOnly const limit;
        EXPECT_FALSE(first.synchronize());
        EXPECT_FALSE(first.synchronize());
    }
    EXPECT_EQ(log.allLines().size(), 1U);
    EXPECT_EQ(text(), "[Settings]\nSum=20;\n");
    EXPECT_TRUE(first.synchronize());
    EXPECT_THAT(Preferences(file()).integerArrayForKey("Sum"), ElementsAre(21));
}

TEST_F(PreferencesSharingTest, OtherGamesChangeIsReadAfterASave)
{
    Preferences first(file());
    Preferences second(file());
    second.setValue("Theirs", 2);
    EXPECT_TRUE(second.synchronize());
    EXPECT_EQ(first.integerForKey("Theirs"), 0);
    first.setValue("Ours", 1);
    EXPECT_TRUE(first.synchronize());
    EXPECT_EQ(first.integerForKey("Theirs"), 2);
}

} // namespace
