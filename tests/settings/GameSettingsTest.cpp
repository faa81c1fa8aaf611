// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "settings/GameSettings.h"

#include "support/OwnHome.h"
#include "support/TestSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

namespace
{

using testing::ElementsAre;

std::array<int, 5> Times()
{
    std::array<int, 5> times{-1, -1, -1, -1, -1};
    GameSettings::GetIntArrayParam(setting::kRaceTimes, times.data(), 5);
    return times;
}

std::string StringOf(TextSetting const& setting)
{
    char buffer[64];
    GameSettings::GetStringParam(setting, buffer);
    return buffer;
}

constexpr IntSetting kTestInt{"TestInt", 0};
constexpr FloatSetting kTestFloat{"TestFloat", 0.0F};
constexpr TextSetting kTestString{"TestString", ""};
constexpr TextSetting kTestKey{"TestKey", ""};
constexpr ListSetting kTestList{"TestList"};

// All of the table, to the last bit. Ends the process.
[[noreturn]] void ReadDefaults()
{
    GameSettings::Initialize();
    EXPECT_EQ(GameSettings::GetIntParam(setting::kFullscreen), 1);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kShowFps), 0);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kFpsFontSize), 12);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kAsteroidsSmoothness), 7);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kCockpitArrowX), 7);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kCockpitArrowY), 7);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kCockpitTimerFontSize), 20);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kCockpitWayptFontSize), 12);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kMouseInvert), 0);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kMusicLastTrackIndex), -1);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogStart), 10.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndLow), 20.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndHigh), 50.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kLodDistMedium), 30.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kLodDistFar), 55.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsDensityEdge), 0.01F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter), 0.5F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsMinR), 0.1F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsMaxR), 0.6F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kPlayerRotationsPerSecond), 0.1F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kPlayerMaxSpeed), 4.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kPlayerMinSpeed), 0.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kPlayerMaxAccel), 0.3F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kPlayerSize), 0.2F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kMouseSensitivity), 1.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kMouseDeadCenterPct), 0.05F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kSoundVolume), 1.0F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kMusicVolume), 0.5F);
    EXPECT_EQ(StringOf(setting::kFpsFontName), "Helvetica");
    EXPECT_EQ(StringOf(setting::kCockpitTimerFontName), "Courier");
    EXPECT_EQ(GameSettings::GetUniCharParam(setting::kKeyThrustUp), u'w');
    EXPECT_EQ(GameSettings::GetUniCharParam(setting::kKeyThrustDown), u's');
    EXPECT_EQ(GameSettings::GetUniCharParam(setting::kKeyPause), 27);
    EXPECT_THAT(Times(), ElementsAre(0, 0, 0, 0, 0));
    std::exit(testing::Test::HasFailure() ? 1 : 0);
}

class GameSettingsTest : public testing::Test
{
protected:
    GameSettingsTest() { GameSettings::Initialize(); }
};

// In a process of its own, without any settings.
TEST(GameSettingsDefaultsTest, AreReadWhereNothingIsStored)
{
    test::OwnHome const home;
    EXPECT_EXIT(ReadDefaults(), testing::ExitedWithCode(0), "");
}

TEST_F(GameSettingsTest, UnknownKeysReadAsNothing)
{
    EXPECT_EQ(GameSettings::GetIntParam(kTestInt), 0);
    EXPECT_EQ(GameSettings::GetFloatParam(kTestFloat), 0.0F);
    EXPECT_EQ(StringOf(kTestString), "");
    EXPECT_EQ(GameSettings::GetUniCharParam(kTestString), 0);
    int values[2] = {7, 7};
    GameSettings::GetIntArrayParam(kTestList, values, 2);
    EXPECT_THAT(values, ElementsAre(0, 0));
}

TEST_F(GameSettingsTest, WritingIsSeenByTheNextRead)
{
    GameSettings::SetIntParam(kTestInt, -12);
    EXPECT_EQ(GameSettings::GetIntParam(kTestInt), -12);
    GameSettings::SetIntParam(kTestInt, 13);
    EXPECT_EQ(GameSettings::GetIntParam(kTestInt), 13);
    GameSettings::SetFloatParam(kTestFloat, 0.1F);
    EXPECT_EQ(GameSettings::GetFloatParam(kTestFloat), 0.1F);
    GameSettings::SetStringParam(kTestString, "two words");
    EXPECT_EQ(StringOf(kTestString), "two words");
}

TEST_F(GameSettingsTest, IntsReadAsFloatsAndFloatsAsInts)
{
    GameSettings::SetIntParam(kTestInt, 3);
    EXPECT_EQ(GameSettings::GetFloatParam(FloatSetting{kTestInt.key, 0.0F}), 3.0F);
    GameSettings::SetFloatParam(kTestFloat, -2.75F);
    EXPECT_EQ(GameSettings::GetIntParam({kTestFloat.key, 0}), -2);
}

TEST_F(GameSettingsTest, FlagOfAFractionIsNotZero)
{
    test::ScopedSetting const half(kTestInt, 0.5F);
    EXPECT_EQ(GameSettings::GetFloatParam(kTestInt), 0.5F);
}

TEST_F(GameSettingsTest, TextThatIsNoNumberReadsAsNothing)
{
    GameSettings::SetStringParam(kTestString, "twelve");
    EXPECT_EQ(GameSettings::GetIntParam({kTestString.key, 0}), 0);
    EXPECT_EQ(GameSettings::GetFloatParam(FloatSetting{kTestString.key, 0.0F}), 0.0F);
    int values[2] = {7, 7};
    GameSettings::GetIntArrayParam({kTestString.key}, values, 2);
    EXPECT_THAT(values, ElementsAre(0, 0));
}

TEST_F(GameSettingsTest, StringIsCutToItsBuffer)
{
    GameSettings::SetStringParam(kTestString, "abcdefgh");
    char exact[9];
    GameSettings::GetStringParam(kTestString, exact);
    EXPECT_STREQ(exact, "abcdefgh");
    char shorter[8];
    GameSettings::GetStringParam(kTestString, shorter);
    EXPECT_STREQ(shorter, "abcdefg");
    char one[1] = {'x'};
    GameSettings::GetStringParam(kTestString, one);
    EXPECT_STREQ(one, "");
}

TEST_F(GameSettingsTest, StringIsCutBetweenCharacters)
{
    GameSettings::SetStringParam(kTestString, "a\xC3\xA9\xE2\x82\xAC"); // a, e acute, euro
    char four[4];
    GameSettings::GetStringParam(kTestString, four);
    EXPECT_STREQ(four, "a\xC3\xA9");
    char five[5];
    GameSettings::GetStringParam(kTestString, five);
    EXPECT_STREQ(five, "a\xC3\xA9");
    char three[3];
    GameSettings::GetStringParam(kTestString, three);
    EXPECT_STREQ(three, "a");
}

TEST_F(GameSettingsTest, BindingKeepsItsCase)
{
    GameSettings::SetUniCharParam(kTestKey, u'W');
    EXPECT_EQ(GameSettings::GetUniCharParam(kTestKey), u'W');
    EXPECT_EQ(StringOf(kTestKey), "W");
}

TEST_F(GameSettingsTest, BindingMayBeAnyUnit)
{
    GameSettings::SetUniCharParam(kTestKey, 0x00E9);
    EXPECT_EQ(StringOf(kTestKey), "\xC3\xA9");
    EXPECT_EQ(GameSettings::GetUniCharParam(kTestKey), 0x00E9);
    GameSettings::SetUniCharParam(kTestKey, 0xF700); // an arrow key
    EXPECT_EQ(GameSettings::GetUniCharParam(kTestKey), 0xF700);
}

TEST_F(GameSettingsTest, BindingIsTheFirstUnitOfTheString)
{
    GameSettings::SetStringParam(kTestKey, "xyz");
    EXPECT_EQ(GameSettings::GetUniCharParam(kTestKey), u'x');
    GameSettings::SetStringParam(kTestKey, "");
    EXPECT_EQ(GameSettings::GetUniCharParam(kTestKey), 0);
}

TEST_F(GameSettingsTest, RaceTimesAreZerosWhenEmpty)
{
    GameSettings::SetIntArrayParam(setting::kRaceTimes, nullptr, 0);
    EXPECT_THAT(Times(), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(GameSettingsTest, ShortArrayIsFilledUpWithZeros)
{
    int const three[] = {60, 70, 80};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, three, 3);
    EXPECT_THAT(Times(), ElementsAre(60, 70, 80, 0, 0));
}

TEST_F(GameSettingsTest, ElementsPastTheCountAreIgnored)
{
    int const six[] = {1, 2, 3, 4, 5, 6};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, six, 6);
    EXPECT_THAT(Times(), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(GameSettingsTest, ArrayReplacesTheOneBefore)
{
    int const five[] = {1, 2, 3, 4, 5};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, five, 5);
    int const zeros[5] = {};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, zeros, 5);
    EXPECT_THAT(Times(), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(GameSettingsTest, CountOfZeroStoresAnEmptyArray)
{
    int const five[] = {1, 2, 3, 4, 5};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, five, 5);
    GameSettings::SetIntArrayParam(setting::kRaceTimes, five, 0);
    EXPECT_THAT(Times(), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(GameSettingsTest, CountOfZeroReadsNothing)
{
    int untouched = 7;
    GameSettings::GetIntArrayParam(setting::kRaceTimes, &untouched, 0);
    EXPECT_EQ(untouched, 7);
}

} // namespace
