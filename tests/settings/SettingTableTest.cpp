// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The ranges of the table, what is read where the file holds a number beyond them, and the page of the manual
// that shows the table.
#include "settings/SettingTable.h"

#include "support/CapturedLog.h"
#include "support/TestSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <fstream>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

namespace
{

using namespace std::string_literals;
using test::ScopedSetting;
using testing::Contains;
using testing::StartsWith;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

template <typename Value>
float FloatRead(FloatSetting const& setting, Value stored)
{
    ScopedSetting const scoped(setting, stored);
    return GameSettings::GetFloatParam(setting);
}

template <typename Value>
int IntRead(IntSetting const& setting, Value stored)
{
    ScopedSetting const scoped(setting, stored);
    return GameSettings::GetIntParam(setting);
}

TEST(SettingTable, NumberWithinItsRangeIsRead)
{
    EXPECT_EQ(FloatRead(setting::kFogEndHigh, 0.0F), 0.0F);
    EXPECT_EQ(FloatRead(setting::kFogEndHigh, 80.0F), 80.0F);
    EXPECT_EQ(FloatRead(setting::kFogEndHigh, 33.3F), 33.3F);
    EXPECT_EQ(IntRead(setting::kFpsFontSize, 1), 1);
    EXPECT_EQ(IntRead(setting::kFpsFontSize, 1000), 1000);
}

TEST(SettingTable, NumberBeyondItsRangeReadsAsTheNearestEnd)
{
    for (float const high : {80.1F, 1e30F, kInfinity})
    {
        EXPECT_EQ(FloatRead(setting::kFogEndHigh, high), 80.0F) << high;
    }
    for (float const low : {-0.1F, -1e30F, -kInfinity})
    {
        EXPECT_EQ(FloatRead(setting::kFogEndHigh, low), 0.0F) << low;
    }
    EXPECT_EQ(FloatRead(setting::kFogEndHigh, std::numeric_limits<int>::max()), 80.0F);
    EXPECT_EQ(IntRead(setting::kFpsFontSize, 1001), 1000);
    EXPECT_EQ(IntRead(setting::kFpsFontSize, 1e30F), 1000);
    EXPECT_EQ(IntRead(setting::kFpsFontSize, std::numeric_limits<int>::min()), 1);
}

TEST(SettingTable, RangeMayHaveOneEnd)
{
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, 13), 12);
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, std::numeric_limits<int>::min()),
              std::numeric_limits<int>::min());
}

TEST(SettingTable, NumberWithoutRangeIsReadAsItIs)
{
    for (int const any : {std::numeric_limits<int>::min(), -7, 0, std::numeric_limits<int>::max()})
    {
        EXPECT_EQ(IntRead(setting::kMusicLastTrackIndex, any), any);
    }
    EXPECT_EQ(FloatRead(setting::kMouseDeadCenterPct, 1e30F), 1e30F);
    EXPECT_EQ(FloatRead(setting::kSoundVolume, -1e30F), -1e30F);
}

TEST(SettingTable, NegativeSensitivityIsReadAsItIs)
{
    EXPECT_EQ(FloatRead(setting::kMouseSensitivity, -1.0F), -1.0F);
}

TEST(SettingTable, WhatIsNoNumberReadsAsTheDefault)
{
    EXPECT_EQ(FloatRead(setting::kFogEndHigh, kNaN), 50.0F);
    EXPECT_EQ(FloatRead(setting::kSoundVolume, kNaN), 1.0F);
}

TEST(SettingTable, InfinityReadsAsTheGreatestNumber)
{
    EXPECT_EQ(FloatRead(setting::kFogStart, kInfinity), std::numeric_limits<float>::max());
}

TEST(SettingTable, SettingBeyondItsRangeIsLoggedAtTheStartOnly)
{
    test::ScopedSetting const stored(setting::kFogEndHigh, 1e9F);
    CapturedLog log;
    GameSettings::Initialize();
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndHigh), 80.0F);
    EXPECT_THAT(log.lines(),
                testing::ElementsAre(
                    "The setting FogEndHigh is 1e+09, which the game cannot play with; it takes 80"));
}

std::string Written(int number)
{
    return std::to_string(number);
}

std::string Written(float number)
{
    std::array<char, 64> text{}; // zero-terminated
    std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed);
    return text.data();
}

template <typename Number>
std::string RangeOf(NumberSetting<Number> const& setting)
{
    bool const hasLeast = setting.least != std::numeric_limits<Number>::lowest();
    bool const hasMost = setting.most != std::numeric_limits<Number>::max();
    if (hasLeast && hasMost)
    {
        return "from " + Written(setting.least) + " to " + Written(setting.most);
    }
    return hasMost ? "up to " + Written(setting.most) : "any";
}

// How the page's row of a setting begins.
std::string RowOf(IntSetting const& setting)
{
    return "| `"s + setting.key + "` | whole number | " + Written(setting.standard) + " | " +
           RangeOf(setting);
}

std::string RowOf(FloatSetting const& setting)
{
    return "| `"s + setting.key + "` | number | " + Written(setting.standard) + " | " + RangeOf(setting);
}

std::string RowOf(TextSetting const& setting)
{
    std::string const standard = setting.standard;
    return "| `"s + setting.key + "` | text | " + (standard == "\x1B" ? "Escape" : standard) + " | any";
}

std::string RowOf(ListSetting const& setting)
{
    return "| `"s + setting.key + "` | list of whole numbers | none | any";
}

TEST(SettingTable, PageShowsItsKeysTypesDefaultsAndRanges)
{
    std::vector<std::string> rows;
    std::ifstream page(QUARROW_SOURCE_DIR "/docs/settings.md");
    for (std::string line; std::getline(page, line);)
    {
        if (line.starts_with("| `"))
        {
            rows.push_back(line);
        }
    }
    auto const expectRow = [&](auto const& setting)
    { EXPECT_THAT(rows, Contains(StartsWith(RowOf(setting) + " | "))); };
    std::apply([&](auto const&... settings) { (expectRow(settings), ...); }, setting::kTable);
    EXPECT_EQ(rows.size(), std::tuple_size_v<decltype(setting::kTable)>);
}

} // namespace
