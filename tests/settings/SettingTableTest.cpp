// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The ranges of the table, and what is read where the file holds a number beyond them.
#include "settings/SettingTable.h"

#include "support/CapturedLog.h"
#include "support/TestSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace
{

using test::ScopedSetting;

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
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, 3), 3);
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, 12), 12);
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
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, 13), 12);
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, std::numeric_limits<int>::min()), 3);
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, 1e30F), 12);
    EXPECT_EQ(IntRead(setting::kAsteroidsSmoothness, kNaN), 3);
}

TEST(SettingTable, WhatIsNoNumberReadsAsTheUpperEnd)
{
    EXPECT_EQ(FloatRead(setting::kFogEndHigh, kNaN), 80.0F);
}

TEST(SettingTable, NumberWithoutRangeIsReadAsItIs)
{
    for (int const any : {std::numeric_limits<int>::min(), -7, 0, std::numeric_limits<int>::max()})
    {
        EXPECT_EQ(IntRead(setting::kCockpitArrowX, any), any);
        EXPECT_EQ(IntRead(setting::kMusicLastTrackIndex, any), any);
    }
    EXPECT_EQ(FloatRead(setting::kSoundVolume, -1e30F), -1e30F);
}

TEST(SettingTable, SettingBeyondItsRangeIsLoggedOnce)
{
    FloatSetting const speed{"_TestSpeed", 1.0F, 0.0F, 1000.0F};
    CapturedLog log;
    EXPECT_EQ(FloatRead(speed, 1e9F), 1000.0F);
    EXPECT_EQ(FloatRead(speed, -3.0F), 0.0F);
    EXPECT_THAT(log.lines(),
                testing::ElementsAre(
                    "The setting _TestSpeed is 1e+09, which the game cannot play with; it takes 1000"));
}

} // namespace
