// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "settings/GameSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

namespace
{

using testing::ElementsAre;

std::array<int, 5> Times()
{
    std::array<int, 5> times{-1, -1, -1, -1, -1};
    GameSettings::GetIntArrayParam("RaceTimes", times.data(), 5);
    return times;
}

std::string StringOf(char const* key)
{
    char buffer[64];
    GameSettings::GetStringParam(key, buffer);
    return buffer;
}

class GameSettingsTest : public testing::Test
{
protected:
    GameSettingsTest() { GameSettings::Initialize(); }
};

// These run on an empty store: every other test writes keys of its own only, or the race times.
struct IntDefault
{
    char const* key;
    int value;
};

class IntDefaults : public testing::TestWithParam<IntDefault>
{
};

TEST_P(IntDefaults, ReadsItsDefaultFromAnEmptyStore)
{
    GameSettings::Initialize();
    EXPECT_EQ(GameSettings::GetIntParam(GetParam().key), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Table, IntDefaults,
                         testing::Values(IntDefault{"Fullscreen", 1}, IntDefault{"_ShowFPS", 0},
                                         IntDefault{"_FPSFontSize", 12},
                                         IntDefault{"_AsteroidsSmoothness", 7},
                                         IntDefault{"_CockpitArrowX", 7}, IntDefault{"_CockpitArrowY", 7},
                                         IntDefault{"_CockpitTimerFontSize", 20},
                                         IntDefault{"_CockpitWayptFontSize", 12},
                                         IntDefault{"MouseInvert", 0}, IntDefault{"MusicLastTrackIndex", -1}),
                         [](auto const& tested)
                         {
                             std::string name(tested.param.key);
                             std::erase(name, '_');
                             return name;
                         });

struct FloatDefault
{
    char const* key;
    float value;
};

class FloatDefaults : public testing::TestWithParam<FloatDefault>
{
};

TEST_P(FloatDefaults, ReadsItsDefaultToTheLastBitFromAnEmptyStore)
{
    GameSettings::Initialize();
    EXPECT_EQ(GameSettings::GetFloatParam(GetParam().key), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FloatDefaults,
    testing::Values(FloatDefault{"FogStart", 10.0F}, FloatDefault{"FogEndLow", 20.0F},
                    FloatDefault{"FogEndHigh", 50.0F}, FloatDefault{"LODDistMedium", 30.0F},
                    FloatDefault{"LODDistFar", 55.0F}, FloatDefault{"_AsteroidsDensityEdge", 0.01F},
                    FloatDefault{"_AsteroidsDensityCenter", 0.5F}, FloatDefault{"_AsteroidsMinR", 0.1F},
                    FloatDefault{"_AsteroidsMaxR", 0.6F}, FloatDefault{"_PlayerRotationsPerSecond", 0.1F},
                    FloatDefault{"_PlayerMaxSpeed", 4.0F}, FloatDefault{"_PlayerMinSpeed", 0.0F},
                    FloatDefault{"_PlayerMaxAccel", 0.3F}, FloatDefault{"_PlayerSize", 0.2F},
                    FloatDefault{"MouseSensitivity", 1.0F}, FloatDefault{"MouseDeadCenterPct", 0.05F},
                    FloatDefault{"SoundVolume", 1.0F}, FloatDefault{"MusicVolume", 0.5F}),
    [](auto const& tested)
    {
        std::string name(tested.param.key);
        std::erase(name, '_');
        return name;
    });

TEST_F(GameSettingsTest, FontsHaveDefaults)
{
    EXPECT_EQ(StringOf("_FPSFontName"), "Helvetica");
    EXPECT_EQ(StringOf("_CockpitTimerFontName"), "Courier");
}

TEST_F(GameSettingsTest, KeysAreBoundToWAndSAndEscape)
{
    EXPECT_EQ(GameSettings::GetUniCharParam("KeyDefaultThrustUp"), u'w');
    EXPECT_EQ(GameSettings::GetUniCharParam("KeyDefaultThrustDown"), u's');
    EXPECT_EQ(GameSettings::GetUniCharParam("KeyDefaultPause"), 27);
}

TEST_F(GameSettingsTest, UnknownKeysReadAsNothing)
{
    EXPECT_EQ(GameSettings::GetIntParam("NoSuchKey"), 0);
    EXPECT_EQ(GameSettings::GetFloatParam("NoSuchKey"), 0.0F);
    EXPECT_EQ(StringOf("NoSuchKey"), "");
    EXPECT_EQ(GameSettings::GetUniCharParam("NoSuchKey"), 0);
    int values[2] = {7, 7};
    GameSettings::GetIntArrayParam("NoSuchKey", values, 2);
    EXPECT_THAT(values, ElementsAre(0, 0));
}

TEST_F(GameSettingsTest, WritingIsSeenByTheNextRead)
{
    GameSettings::SetIntParam("TestInt", -12);
    EXPECT_EQ(GameSettings::GetIntParam("TestInt"), -12);
    GameSettings::SetIntParam("TestInt", 13);
    EXPECT_EQ(GameSettings::GetIntParam("TestInt"), 13);
    GameSettings::SetFloatParam("TestFloat", 0.1F);
    EXPECT_EQ(GameSettings::GetFloatParam("TestFloat"), 0.1F);
    GameSettings::SetStringParam("TestString", "two words");
    EXPECT_EQ(StringOf("TestString"), "two words");
}

TEST_F(GameSettingsTest, IntsReadAsFloatsAndFloatsAsInts)
{
    GameSettings::SetIntParam("TestInt", 3);
    EXPECT_EQ(GameSettings::GetFloatParam("TestInt"), 3.0F);
    GameSettings::SetFloatParam("TestFloat", -2.75F);
    EXPECT_EQ(GameSettings::GetIntParam("TestFloat"), -2);
}

TEST_F(GameSettingsTest, TextThatIsNoNumberReadsAsNothing)
{
    GameSettings::SetStringParam("TestString", "twelve");
    EXPECT_EQ(GameSettings::GetIntParam("TestString"), 0);
    EXPECT_EQ(GameSettings::GetFloatParam("TestString"), 0.0F);
    int values[2] = {7, 7};
    GameSettings::GetIntArrayParam("TestString", values, 2);
    EXPECT_THAT(values, ElementsAre(0, 0));
}

TEST_F(GameSettingsTest, StringIsCutToItsBuffer)
{
    GameSettings::SetStringParam("TestString", "abcdefgh");
    char exact[9];
    GameSettings::GetStringParam("TestString", exact);
    EXPECT_STREQ(exact, "abcdefgh");
    char shorter[8];
    GameSettings::GetStringParam("TestString", shorter);
    EXPECT_STREQ(shorter, "abcdefg");
    char one[1] = {'x'};
    GameSettings::GetStringParam("TestString", one);
    EXPECT_STREQ(one, "");
}

TEST_F(GameSettingsTest, StringIsCutBetweenCharacters)
{
    GameSettings::SetStringParam("TestString", "a\xC3\xA9\xE2\x82\xAC"); // a, e acute, euro
    char four[4];
    GameSettings::GetStringParam("TestString", four);
    EXPECT_STREQ(four, "a\xC3\xA9");
    char five[5];
    GameSettings::GetStringParam("TestString", five);
    EXPECT_STREQ(five, "a\xC3\xA9");
    char three[3];
    GameSettings::GetStringParam("TestString", three);
    EXPECT_STREQ(three, "a");
}

TEST_F(GameSettingsTest, BindingKeepsItsCase)
{
    GameSettings::SetUniCharParam("TestKey", u'W');
    EXPECT_EQ(GameSettings::GetUniCharParam("TestKey"), u'W');
    EXPECT_EQ(StringOf("TestKey"), "W");
}

TEST_F(GameSettingsTest, BindingMayBeAnyUnit)
{
    GameSettings::SetUniCharParam("TestKey", 0x00E9);
    EXPECT_EQ(StringOf("TestKey"), "\xC3\xA9");
    EXPECT_EQ(GameSettings::GetUniCharParam("TestKey"), 0x00E9);
    GameSettings::SetUniCharParam("TestKey", 0xF700); // an arrow key
    EXPECT_EQ(GameSettings::GetUniCharParam("TestKey"), 0xF700);
}

TEST_F(GameSettingsTest, BindingIsTheFirstUnitOfTheString)
{
    GameSettings::SetStringParam("TestKey", "xyz");
    EXPECT_EQ(GameSettings::GetUniCharParam("TestKey"), u'x');
    GameSettings::SetStringParam("TestKey", "");
    EXPECT_EQ(GameSettings::GetUniCharParam("TestKey"), 0);
}

TEST_F(GameSettingsTest, RaceTimesAreZerosWhenEmpty)
{
    GameSettings::SetIntArrayParam("RaceTimes", nullptr, 0);
    EXPECT_THAT(Times(), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(GameSettingsTest, ShortArrayIsFilledUpWithZeros)
{
    int const three[] = {60, 70, 80};
    GameSettings::SetIntArrayParam("RaceTimes", three, 3);
    EXPECT_THAT(Times(), ElementsAre(60, 70, 80, 0, 0));
}

TEST_F(GameSettingsTest, ElementsPastTheCountAreIgnored)
{
    int const six[] = {1, 2, 3, 4, 5, 6};
    GameSettings::SetIntArrayParam("RaceTimes", six, 6);
    EXPECT_THAT(Times(), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(GameSettingsTest, ArrayReplacesTheOneBefore)
{
    int const five[] = {1, 2, 3, 4, 5};
    GameSettings::SetIntArrayParam("RaceTimes", five, 5);
    int const zeros[5] = {};
    GameSettings::SetIntArrayParam("RaceTimes", zeros, 5);
    EXPECT_THAT(Times(), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(GameSettingsTest, CountOfZeroStoresAnEmptyArray)
{
    int const five[] = {1, 2, 3, 4, 5};
    GameSettings::SetIntArrayParam("RaceTimes", five, 5);
    GameSettings::SetIntArrayParam("RaceTimes", five, 0);
    EXPECT_THAT(Times(), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(GameSettingsTest, CountOfZeroReadsNothing)
{
    int untouched = 7;
    GameSettings::GetIntArrayParam("RaceTimes", &untouched, 0);
    EXPECT_EQ(untouched, 7);
}

} // namespace
