// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/Preferences.h"

#include "platform/settings/PreferencesFolder.h"
#include "support/CapturedLog.h"

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>

namespace
{

namespace fs = std::filesystem;
using platform::Preferences;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PreferencesTest : public PreferencesFolder
{
protected:
    void expectFloats(Preferences::Defaults const& values) const
    {
        Preferences const preferences(file());
        for (auto const& [key, value] : values)
        {
            EXPECT_EQ(preferences.floatForKey(key), std::get<float>(value)) << key;
        }
    }
};

TEST_F(PreferencesTest, UnknownKeysReadAsNothing)
{
    Preferences const preferences(file());
    EXPECT_EQ(preferences.integerForKey("Nowhere"), 0);
    EXPECT_EQ(preferences.floatForKey("Nowhere"), 0.0F);
    EXPECT_EQ(preferences.stringForKey("Nowhere"), "");
    EXPECT_THAT(preferences.integerArrayForKey("Nowhere"), IsEmpty());
}

TEST_F(PreferencesTest, RegisteredDefaultsAreReadAndNeverWritten)
{
    {
        Preferences preferences(file());
        preferences.registerDefaults(defaults());
        EXPECT_EQ(preferences.integerForKey("Number"), 7);
        EXPECT_EQ(preferences.floatForKey("Real"), 0.1F);
        EXPECT_EQ(preferences.stringForKey("Text"), "word");
        EXPECT_THAT(preferences.integerArrayForKey("List"), ElementsAre(1, 2));
    }
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(PreferencesTest, ChangesComeBackInTheNextRun)
{
    store({{"Number", -3}, {"Real", 0.25F}, {"Text", "\x1B"}, {"List", std::vector<int>{}}});
    Preferences const preferences(file());
    EXPECT_EQ(preferences.integerForKey("Number"), -3);
    EXPECT_EQ(preferences.floatForKey("Real"), 0.25F);
    EXPECT_EQ(preferences.stringForKey("Text"), "\x1B");
    EXPECT_THAT(preferences.integerArrayForKey("List"), IsEmpty());
}

TEST_F(PreferencesTest, FloatsAreWrittenAsTheShortestDecimalThatReadsBack)
{
    Preferences::Defaults const values{
        {"a", 0.1F},           {"b", 0.3F}, {"c", 1e30F}, {"d", 16777216.0F}, {"e", 1.17549435e-38F},
        {"f", 3.40282347e38F}, {"g", 65.0F}};
    store(values);
    EXPECT_THAT(text(), HasSubstr("a=0.1\n"));
    EXPECT_THAT(text(), HasSubstr("b=0.3\n"));
    expectFloats(values);
}

TEST_F(PreferencesTest, NumbersConvertTowardsZeroAndWithinTheirRange)
{
    writeSettings("a = 2.9\nb = -2.9\nc = 1e30\nd = nan\ne = 99999999999\nf = 3\n");
    Preferences const preferences(file());
    EXPECT_EQ(preferences.integerForKey("a"), 2);
    EXPECT_EQ(preferences.integerForKey("b"), -2);
    EXPECT_EQ(preferences.integerForKey("c"), std::numeric_limits<int>::max());
    EXPECT_EQ(preferences.integerForKey("d"), 0);
    EXPECT_TRUE(std::isnan(preferences.floatForKey("d")));
    EXPECT_EQ(preferences.integerForKey("e"), std::numeric_limits<int>::max());
    EXPECT_EQ(preferences.floatForKey("f"), 3.0F);
}

TEST_F(PreferencesTest, WhatIsNoNumberReadsAsNothing)
{
    writeSettings("text=twelve\nyes=true\nlist=1;two;3.9;true;1e30\n");
    Preferences const preferences(file());
    EXPECT_EQ(preferences.integerForKey("text"), 0);
    EXPECT_EQ(preferences.floatForKey("yes"), 0.0F);
    EXPECT_THAT(preferences.integerArrayForKey("list"),
                ElementsAre(1, 0, 3, 0, std::numeric_limits<int>::max()));
}

TEST_F(PreferencesTest, WrongTypeCostsThatKeyAloneAndIsToldOnce)
{
    writeSettings("Number=seven\nReal=0.5\n");
    Preferences preferences(file());
    preferences.registerDefaults(defaults());
    CapturedLog log;
    EXPECT_EQ(preferences.integerForKey("Number"), 7);
    EXPECT_EQ(preferences.integerForKey("Number"), 7);
    EXPECT_EQ(preferences.floatForKey("Real"), 0.5F);
    EXPECT_THAT(log.allLines(), ElementsAre(HasSubstr("Number")));
}

TEST_F(PreferencesTest, TextsThatAreNoTextsCostThatKeyAlone)
{
    writeSettings("Text=a\\q\nList=\xFF\nNumber=3\n");
    Preferences preferences(file());
    preferences.registerDefaults(defaults());
    EXPECT_EQ(preferences.stringForKey("Text"), "word");
    EXPECT_THAT(preferences.integerArrayForKey("List"), ElementsAre(1, 2));
    EXPECT_EQ(preferences.integerForKey("Number"), 3);
}

TEST_F(PreferencesTest, CommentsOrderAndUnknownKeysSurviveASave)
{
    std::string const dots(1000, '.');
    write("# What I tried" + dots +
          "\n\n[Other]\nForeign=1.5;x\n\n[Settings]\n# Slower\nZebra[de]=Streifen\n" +
          "Number=5\n\n# Nearer\nApple=\"quoted\" = 7\n\n[Last]\nkey=2001-02-03\n# end\n");
    std::string const before = text();
    store({{"Number", 1}, {"New", 2}});
    std::string expected = before;
    expected.replace(expected.find("Number=5"), 8, "Number=1");
    expected.insert(expected.find("\n[Last]"), "New=2\n");
    // GLib 2.74 writes a new key after the empty lines at the end of its group, 2.84 before them.
    std::string const older = "7\n\nNew=2\n";
    std::string stored = text();
    if (std::size_t const at = stored.find(older); at != std::string::npos)
    {
        stored.replace(at, older.size(), "7\nNew=2\n");
    }
    EXPECT_EQ(stored, expected);
}

TEST_F(PreferencesTest, SynchronizeWritesOnlyWhatChanged)
{
    Preferences preferences(file());
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_FALSE(fs::exists(file()));
    preferences.setValue("A", 1);
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_EQ(text(), "[Settings]\nA=1\n");
    fs::remove(file());
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_FALSE(fs::exists(file()));
    EXPECT_THAT(others(), IsEmpty()) << "nothing half written stays behind";
}

TEST_F(PreferencesTest, PermissionsAndLinksStay)
{
    fs::path const real = m_folder / "real.ini";
    std::ofstream(real) << "[Settings]\nA=1\n";
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(real, file());
    store({{"B", 2}});
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(Preferences(real).integerForKey("B"), 2);
}

TEST_F(PreferencesTest, LinkToNothingIsNoBrokenFileAndIsFollowed)
{
    fs::path const real = m_folder / "real.ini";
    fs::create_symlink("real.ini", file());
    store({{"A", 1}});
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(Preferences(real).integerForKey("A"), 1);
    EXPECT_THAT(others(), ElementsAre("real.ini"));
}

TEST_F(PreferencesTest, TextsOfManyLinesAndOddSignsComeBack)
{
    for (std::string const text :
         {"\nafter a break", "a\nb\n", "three ''' and\nthree \"\"\"", "a\\b", "\ttab\t", "\"", "'", "=",
          "a;b;", "#", "[", " both ", "\r\n", "\x7F\x01", "Ж\n漢字", " "})
    {
        store({{"Text", text}, {"Number", 3}});
        Preferences const preferences(file());
        EXPECT_EQ(preferences.stringForKey("Text"), text);
        EXPECT_EQ(preferences.integerForKey("Number"), 3);
    }
}

// The form feed is left out: no key gives it, and GLib takes it for white space before the value.
TEST_F(PreferencesTest, EveryCharacterComesBack)
{
    Preferences::Defaults texts;
    for (gunichar c = 1; c < 0x10000; c += c < 0x300 ? 1 : 0x95)
    {
        std::array<char, 6> bytes{};
        if (c != '\f' && g_unichar_validate(c) != 0)
        {
            auto const length = static_cast<std::size_t>(g_unichar_to_utf8(c, bytes.data()));
            texts["Key" + std::to_string(c)] = std::string(bytes.data(), length);
        }
    }
    store(texts);
    Preferences const preferences(file());
    for (auto const& [key, text] : texts)
    {
        EXPECT_EQ(preferences.stringForKey(key), std::get<std::string>(text)) << key;
    }
}

TEST_F(PreferencesTest, IllFormedTextCostsNoOtherSetting)
{
    store({{"A", 1}, {"Text", "x\xFFy"}});
    Preferences const preferences(file());
    EXPECT_EQ(preferences.integerForKey("A"), 1);
    EXPECT_EQ(preferences.stringForKey("Text"), "x\xEF\xBF\xBDy");
}

TEST_F(PreferencesTest, EveryFloatComesBackBitForBit)
{
    constexpr std::uint32_t kStep = 2097143; // a prime: some two thousand bit patterns of every magnitude
    Preferences::Defaults values;
    for (std::uint64_t bits = 1; bits < 0x100000000U; bits += kStep)
    {
        auto const value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        if (std::isfinite(value))
        {
            values[std::to_string(bits)] = value;
        }
    }
    store(values);
    expectFloats(values);
}

// Where the tests run as root: the user "nobody" while the object exists.
class WithoutPrivileges
{
public:
    WithoutPrivileges() : m_user(geteuid())
    {
        constexpr uid_t kNobody = 65534;
        m_changed = m_user == 0 && seteuid(kNobody) == 0;
    }
    ~WithoutPrivileges()
    {
        if (m_changed && seteuid(m_user) != 0)
        {
            std::abort();
        }
    }
    WithoutPrivileges(WithoutPrivileges const&) = delete;
    WithoutPrivileges& operator=(WithoutPrivileges const&) = delete;

private:
    uid_t m_user;
    bool m_changed = false;
};

TEST_F(PreferencesTest, BrokenFileThatCannotBeMovedIsToldOnceAndKept)
{
    write("A");
    fs::permissions(m_folder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec |
                                  fs::perms::others_read);
    CapturedLog log;
    {
        WithoutPrivileges const reduced;
        Preferences preferences(file());
        preferences.setValue("B", 2);
        EXPECT_FALSE(preferences.synchronize());
        EXPECT_FALSE(preferences.synchronize());
        EXPECT_EQ(preferences.integerForKey("B"), 2);
    }
    EXPECT_THAT(log.allLines(), ElementsAre(HasSubstr("settings.ini")));
    fs::permissions(m_folder, fs::perms::owner_all);
    EXPECT_EQ(text(), "A");
}

TEST_F(PreferencesTest, UnreadableFileIsSetAside)
{
    writeSettings("A=1\n");
    fs::permissions(file(), fs::perms::none);
    fs::permissions(m_folder, fs::perms::all);
    CapturedLog log;
    {
        WithoutPrivileges const reduced;
        Preferences preferences(file());
        preferences.setValue("B", 2);
        EXPECT_TRUE(preferences.synchronize());
    }
    EXPECT_EQ(log.allLines().size(), 1U);
    EXPECT_EQ(others().size(), 1U);
    EXPECT_EQ(text(), "[Settings]\nB=2\n");
}

TEST_F(PreferencesTest, FileThatBreaksWhileTheGameRunsIsSetAsideBeforeTheSave)
{
    Preferences preferences(file());
    write("[[[");
    preferences.setValue("A", 1);
    CapturedLog log;
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_THAT(log.allLines(), ElementsAre(HasSubstr("broken-")));
    EXPECT_EQ(text(), "[Settings]\nA=1\n");
    EXPECT_EQ(others().size(), 1U);
}

class BrokenSettings : public PreferencesTest, public testing::WithParamInterface<std::string>
{
};

TEST_P(BrokenSettings, AreSetAsideWithOneLine)
{
    write(GetParam());
    CapturedLog log;
    Preferences preferences(file());
    preferences.registerDefaults(defaults());
    EXPECT_THAT(log.allLines(), ElementsAre(HasSubstr("settings.ini")));
    EXPECT_EQ(preferences.integerForKey("Number"), 7);
    ASSERT_EQ(others().size(), 1U);
    EXPECT_THAT(others().front(), testing::StartsWith("settings.ini.broken-2"));
}

INSTANTIATE_TEST_SUITE_P(Texts, BrokenSettings,
                         testing::Values("A", "A=1\n", "[[[", "[Settings]\n; no comment\n",
                                         "[Settings]\n=1\n", "\xFF\xFE\x80", std::string(50000, '['),
                                         std::string(std::size_t{2} << 20U, '\n')),
                         [](auto const& text) { return "Text" + std::to_string(text.index); });

TEST_F(PreferencesTest, FolderInTheWayIsSetAsideLikeABrokenFile)
{
    fs::create_directory(file());
    Preferences preferences(file());
    preferences.setValue("A", 1);
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_EQ(others().size(), 1U);
}

TEST_F(PreferencesTest, RefusedSaveIsToldOnceAndTriedAgain)
{
    fs::path const blocked = m_folder / "blocked";
    std::ofstream(blocked) << "a file where a folder should be";
    Preferences preferences(blocked / "settings.ini");
    preferences.setValue("A", 1);
    CapturedLog log;
    EXPECT_FALSE(preferences.synchronize());
    EXPECT_FALSE(preferences.synchronize());
    EXPECT_EQ(log.allLines().size(), 1U);

    fs::remove(blocked);
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_EQ(Preferences(blocked / "settings.ini").integerForKey("A"), 1);
}

} // namespace
