// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Numbers that the game cannot play with, in the settings.
#include "settings/GameSettings.h"
#include "support/TestSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace
{

using test::ScopedSetting;
using testing::AllOf;
using testing::Ge;
using testing::Le;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

struct Range
{
    char const* key;
    float least;
    float most;
};

void PrintTo(Range const& range, std::ostream* out)
{
    *out << range.key;
}

// As docs/settings.md states them.
constexpr Range kNumbers[] = {
    {"FogStart", 0.0F, 1e6F},
    {"FogEndLow", 0.0F, 80.0F},
    {"FogEndHigh", 0.0F, 80.0F},
    {"LODDistMedium", 0.0F, 1e6F},
    {"LODDistFar", 0.0F, 1e6F},
    {"_AsteroidsDensityEdge", 0.0F, 1.0F},
    {"_AsteroidsDensityCenter", 0.0F, 1.0F},
    {"_AsteroidsMinR", 0.0F, 1.0F},
    {"_AsteroidsMaxR", 0.0F, 1.0F},
    {"_PlayerRotationsPerSecond", 0.0F, 10.0F},
    {"_PlayerMaxSpeed", 0.0F, 1000.0F},
    {"_PlayerMinSpeed", 0.0F, 1000.0F},
    {"_PlayerMaxAccel", 0.0F, 1000.0F},
    {"_PlayerSize", 0.0F, 1000.0F},
    {"MouseSensitivity", 0.0F, 100.0F},
    {"MouseDeadCenterPct", 0.0F, 1.0F},
    {"MusicVolume", 0.0F, 1.0F},
};

constexpr Range kWholeNumbers[] = {
    {"_FPSFontSize", 1.0F, 200.0F},
    {"_CockpitTimerFontSize", 1.0F, 200.0F},
    {"_CockpitWayptFontSize", 1.0F, 200.0F},
    {"_AsteroidsSmoothness", 3.0F, 12.0F},
};

template <typename Value>
float FloatRead(char const* key, Value stored)
{
    ScopedSetting const setting(key, stored);
    return GameSettings::GetFloatParam(key);
}

template <typename Value>
int IntRead(char const* key, Value stored)
{
    ScopedSetting const setting(key, stored);
    return GameSettings::GetIntParam(key);
}

class NumberLimits : public testing::TestWithParam<Range>
{
protected:
    NumberLimits() { GameSettings::Initialize(); }
};

std::string NameOf(testing::TestParamInfo<Range> const& tested)
{
    std::string name(tested.param.key);
    std::erase(name, '_');
    return name;
}

TEST_P(NumberLimits, KeepWhatLiesWithin)
{
    auto const [key, least, most] = GetParam();
    EXPECT_EQ(FloatRead(key, least), least);
    EXPECT_EQ(FloatRead(key, most), most);
    EXPECT_EQ(FloatRead(key, (least + most) / 4.0F), (least + most) / 4.0F);
}

TEST_P(NumberLimits, HoldWhatLiesBeyond)
{
    auto const [key, least, most] = GetParam();
    for (float const high : {1e9F, 1e30F, std::numeric_limits<float>::max(), kInfinity})
    {
        EXPECT_EQ(FloatRead(key, high), most) << high;
    }
    for (float const low : {-1.0F, -1e30F, -kInfinity})
    {
        EXPECT_EQ(FloatRead(key, low), least) << low;
    }
    EXPECT_EQ(FloatRead(key, std::numeric_limits<int>::max()), most);
    EXPECT_EQ(FloatRead(key, std::numeric_limits<int>::min()), least);
}

TEST_P(NumberLimits, HoldWhatIsNoNumberToTheUpperEnd)
{
    EXPECT_EQ(FloatRead(GetParam().key, kNaN), GetParam().most);
}

TEST_P(NumberLimits, HoldWhateverIsStored)
{
    auto const [key, least, most] = GetParam();
    std::mt19937 random(20261121);
    for (int i = 0; i < 2000; ++i)
    {
        auto const bits = static_cast<std::uint32_t>(random());
        float const any = std::bit_cast<float>(bits);
        EXPECT_THAT(FloatRead(key, any), AllOf(Ge(least), Le(most))) << any;
        EXPECT_THAT(FloatRead(key, static_cast<int>(bits)), AllOf(Ge(least), Le(most))) << bits;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, NumberLimits, testing::ValuesIn(kNumbers), NameOf);

class WholeNumberLimits : public NumberLimits
{
};

TEST_P(WholeNumberLimits, KeepWhatLiesWithinAndHoldTheRest)
{
    auto const [key, least, most] = GetParam();
    EXPECT_EQ(IntRead(key, static_cast<int>(least)), static_cast<int>(least));
    EXPECT_EQ(IntRead(key, static_cast<int>(most)), static_cast<int>(most));
    for (int const high : {1000, 100000, std::numeric_limits<int>::max()})
    {
        EXPECT_EQ(IntRead(key, high), static_cast<int>(most)) << high;
    }
    for (int const low : {0, -1, std::numeric_limits<int>::min()})
    {
        EXPECT_EQ(IntRead(key, low), static_cast<int>(least)) << low;
    }
    EXPECT_EQ(IntRead(key, 1e30F), static_cast<int>(most));
    EXPECT_EQ(IntRead(key, -kInfinity), static_cast<int>(least));
    EXPECT_EQ(IntRead(key, kNaN), static_cast<int>(least));
}

INSTANTIATE_TEST_SUITE_P(Of, WholeNumberLimits, testing::ValuesIn(kWholeNumbers), NameOf);

int CountOf(std::string const& part, std::string const& text)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    {
        ++count;
    }
    return count;
}

[[noreturn]] void ReadAHostileSpeedThrice()
{
    GameSettings::Initialize();
    ScopedSetting const speed("_PlayerMaxSpeed", 1e9F);
    GameSettings::GetFloatParam("_PlayerMaxSpeed");
    GameSettings::GetFloatParam("_PlayerMaxSpeed");
    ScopedSetting const another("_PlayerMaxSpeed", -3.0F);
    GameSettings::GetFloatParam("_PlayerMaxSpeed");
    std::quick_exit(0);
}

// In a process of its own, which has told of nothing yet.
TEST(SettingLimitsDeathTest, ValueBeyondItsLimitsIsLoggedOnce)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ReadAHostileSpeedThrice(), testing::ExitedWithCode(0),
                testing::ResultOf(
                    [](std::string const& log) {
                        return CountOf("_PlayerMaxSpeed is 1e+09", log) == 1 &&
                               CountOf("_PlayerMaxSpeed", log) == 1;
                    },
                    testing::IsTrue()));
}

TEST(SettingLimitsTest, OtherKeysKeepAnyValue)
{
    GameSettings::Initialize();
    for (int const any : {std::numeric_limits<int>::min(), -7, 0, std::numeric_limits<int>::max()})
    {
        EXPECT_EQ(IntRead("_CockpitArrowX", any), any);
        EXPECT_EQ(IntRead("MusicLastTrackIndex", any), any);
    }
    EXPECT_EQ(FloatRead("NoSuchKey", 1e30F), 1e30F);
}

} // namespace
