// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSound.h"
#include "settings/GameSettings.h"
#include "support/FrozenSound.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"
#include "ui/Overlay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace
{

using probe::Click;
using probe::Current;
using probe::IsHighlighted;
using probe::MoveOnto;
using probe::Show;
using probe::TextOf;
using probe::TextsOf;
using testing::ElementsAre;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kHuge = std::numeric_limits<float>::max();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

float Stored(FloatSetting const& setting)
{
    return GameSettings::GetFloatParam(setting);
}

int Stored(IntSetting const& setting)
{
    return GameSettings::GetIntParam(setting);
}

// Clicks on an item of the current menu go through these values of a setting, and the item says so.
template <typename Value>
void ExpectRound(int item, NumberSetting<Value> const& setting,
                 std::vector<std::pair<Value, std::string>> const& steps)
{
    for (auto const& [value, text] : steps)
    {
        Click(item);
        EXPECT_EQ(Stored(setting), value);
        EXPECT_EQ(TextOf(*Menu::GetCurrent(), item), text);
    }
}

template <typename Value>
struct HandSet
{
    Value stored;
    char const* word; // how the item shows it
    Value next;       // after a click
};

using FloatCase = HandSet<float>;
using IntCase = HandSet<int>;

template <typename Kind, typename Value>
void ExpectRangesOf(int item, NumberSetting<Value> const& setting, std::string const& caption,
                    std::vector<HandSet<Value>> const& values)
{
    for (auto const& [stored, word, next] : values)
    {
        SCOPED_TRACE(stored);
        test::ScopedSetting const scoped(setting, stored);
        Kind menu;
        EXPECT_EQ(TextOf(menu, item), caption + word);
        EXPECT_TRUE(menu.MouseUp(item));
        EXPECT_EQ(Stored(setting), next);
    }
}

using OptionsTest = Stage;

TEST_F(OptionsTest, TheHubSaysItsFourItems)
{
    Menu const& menu = Show<MenuOptions>();
    EXPECT_THAT(TextsOf(menu), ElementsAre("Graphics", "Mouse, Keyboard", "Sound", "Back to Main Menu"));
    EXPECT_EQ(probe::BoxOf(menu, 3).y, 300 + 120);
    EXPECT_EQ(probe::FontSizeOf(menu.GetItem(0)), 20.0F);
}

TEST_F(OptionsTest, TheHubLeadsToItsPages)
{
    Show<MenuOptions>();
    Click(0);
    EXPECT_NE(Current<MenuGraphics>(), nullptr);
    Show<MenuOptions>();
    Click(1);
    EXPECT_NE(Current<MenuKeyboard>(), nullptr);
    Show<MenuOptions>();
    Click(2);
    EXPECT_NE(Current<MenuSound>(), nullptr);
    Show<MenuOptions>();
    Click(3);
    EXPECT_NE(Current<MenuMain>(), nullptr);
}

TEST_F(OptionsTest, ThePagesLeadBackToTheHub)
{
    Show<MenuGraphics>();
    Click(4);
    EXPECT_NE(Current<MenuOptions>(), nullptr);
    Show<MenuSound>();
    Click(3);
    EXPECT_NE(Current<MenuOptions>(), nullptr);
    Show<MenuKeyboard>();
    Click(5);
    EXPECT_NE(Current<MenuOptions>(), nullptr);
}

TEST_F(OptionsTest, DefaultsAreShown)
{
    EXPECT_THAT(TextsOf(MenuGraphics()), ElementsAre("View Distance:  NORMAL", "Asteroid Detail:  NORMAL",
                                                     "Asteroid Density:  NORMAL", "", "Back to Options"));
    EXPECT_THAT(TextsOf(MenuSound()),
                ElementsAre("Sound Volume:  ON", "Music Volume:  MEDIUM", "", "Back to Options"));
}

TEST_F(OptionsTest, SpacersHighlightButDoNothing)
{
    Menu& graphics = Show<MenuGraphics>();
    MoveOnto(3);
    EXPECT_TRUE(IsHighlighted(graphics, 3));
    Click(3);
    Menu& sound = Show<MenuSound>();
    MoveOnto(2);
    EXPECT_TRUE(IsHighlighted(sound, 2));
    Click(2);
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
}

TEST_F(OptionsTest, AnyOtherIndexDoesNothing)
{
    MenuOptions options;
    MenuGraphics graphics;
    MenuSound sound;
    for (int const item : {-1, 5, 100})
    {
        EXPECT_FALSE(options.MouseUp(item));
        EXPECT_FALSE(graphics.MouseUp(item));
        EXPECT_FALSE(sound.MouseUp(item));
    }
    EXPECT_FALSE(options.MouseUp(4));
    EXPECT_FALSE(graphics.MouseUp(3));
    EXPECT_FALSE(sound.MouseUp(2));
    EXPECT_FALSE(sound.MouseUp(4));
}

TEST_F(OptionsTest, ASettingsClickClicks)
{
    Show<MenuGraphics>();
    Click(0);
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

TEST_F(OptionsTest, ViewDistanceGoesRound)
{
    Show<MenuGraphics>();
    ExpectRound<float>(
        0, setting::kFogEndHigh,
        {{65.0F, "View Distance:  HIGH"}, {40.0F, "View Distance:  LOW"}, {50.0F, "View Distance:  NORMAL"}});
}

TEST_F(OptionsTest, DetailGoesRound)
{
    GameSettings::SetIntParam(setting::kAsteroidsSmoothness, 5);
    Menu const& menu = Show<MenuGraphics>();
    EXPECT_EQ(TextOf(menu, 1), "Asteroid Detail:  LOW");
    ExpectRound<int>(
        1, setting::kAsteroidsSmoothness,
        {{7, "Asteroid Detail:  NORMAL"}, {9, "Asteroid Detail:  HIGH"}, {5, "Asteroid Detail:  LOW"}});
}

TEST_F(OptionsTest, AThinnerFieldTakesTheFogAlong)
{
    Menu const& menu = Show<MenuGraphics>();
    Click(2);
    EXPECT_EQ(Stored(setting::kAsteroidsDensityCenter), 0.25F);
    EXPECT_EQ(Stored(setting::kFogEndLow), 30.0F);
    EXPECT_EQ(TextOf(menu, 2), "Asteroid Density:  HALF");
    Click(2);
    EXPECT_EQ(Stored(setting::kAsteroidsDensityCenter), 0.5F);
    EXPECT_EQ(Stored(setting::kFogEndLow), 20.0F);
    EXPECT_EQ(TextOf(menu, 2), "Asteroid Density:  NORMAL");
}

TEST_F(OptionsTest, EachClickChangesItsOwnSettingOnly)
{
    Show<MenuGraphics>();
    Click(0);
    EXPECT_EQ(Stored(setting::kAsteroidsSmoothness), 7);
    EXPECT_EQ(Stored(setting::kAsteroidsDensityCenter), 0.5F);
    EXPECT_EQ(Stored(setting::kFogEndLow), 20.0F);
}

TEST_F(OptionsTest, AHandSetViewDistanceShowsItsRangeAndJoinsTheCycle)
{
    ExpectRangesOf<MenuGraphics, float>(0, setting::kFogEndHigh, "View Distance:  ",
                                        {FloatCase{49.999F, "LOW", 50.0F}, FloatCase{50.0F, "NORMAL", 65.0F},
                                         FloatCase{64.999F, "NORMAL", 65.0F}, FloatCase{65.0F, "HIGH", 40.0F},
                                         FloatCase{0.0F, "LOW", 50.0F}, FloatCase{-1000.0F, "LOW", 50.0F},
                                         FloatCase{kHuge, "HIGH", 40.0F}, FloatCase{kInfinity, "HIGH", 40.0F},
                                         FloatCase{-kInfinity, "LOW", 50.0F},
                                         FloatCase{kNan, "NORMAL", 65.0F}});
}

TEST_F(OptionsTest, AHandSetDensityShowsItsRangeAndJoinsTheCycle)
{
    ExpectRangesOf<MenuGraphics, float>(2, setting::kAsteroidsDensityCenter, "Asteroid Density:  ",
                                        {FloatCase{0.499F, "HALF", 0.5F}, FloatCase{0.5F, "NORMAL", 0.25F},
                                         FloatCase{0.0F, "HALF", 0.5F}, FloatCase{-3.0F, "HALF", 0.5F},
                                         FloatCase{kHuge, "NORMAL", 0.25F},
                                         FloatCase{kNan, "NORMAL", 0.25F}});
}

TEST_F(OptionsTest, AHandSetDensityTakesTheFogAlong)
{
    for (float const stored : {0.499F, 0.5F, 0.0F, -3.0F, kHuge, kNan})
    {
        GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, stored);
        GameSettings::SetFloatParam(setting::kFogEndLow, 1.0F);
        MenuGraphics().MouseUp(2);
        EXPECT_EQ(Stored(setting::kFogEndLow), stored < 0.5F ? 20.0F : 30.0F) << stored;
    }
}

TEST_F(OptionsTest, AHandSetMusicVolumeShowsItsRangeAndJoinsTheCycle)
{
    ExpectRangesOf<MenuSound, float>(1, setting::kMusicVolume, "Music Volume:  ",
                                     {FloatCase{0.0F, "OFF", 0.2F}, FloatCase{-0.0F, "OFF", 0.2F},
                                      FloatCase{0.001F, "SOFT", 0.5F}, FloatCase{0.2F, "SOFT", 0.5F},
                                      FloatCase{0.3F, "SOFT", 0.5F}, FloatCase{0.499F, "SOFT", 0.5F},
                                      FloatCase{0.5F, "MEDIUM", 1.0F}, FloatCase{0.999F, "MEDIUM", 1.0F},
                                      FloatCase{1.0F, "LOUD", 0.0F}, FloatCase{kHuge, "LOUD", 0.0F}});
}

// The ranges leave these open: what counts is one of the words and a way into the cycle.
TEST_F(OptionsTest, AMusicVolumeOutsideAllRangesJoinsTheCycle)
{
    for (float const stored : {-1.0F, -kInfinity, kNan})
    {
        GameSettings::SetFloatParam(setting::kMusicVolume, stored);
        MenuSound menu;
        EXPECT_THAT(TextOf(menu, 1), testing::StartsWith("Music Volume:  "));
        menu.MouseUp(1);
        EXPECT_THAT(Stored(setting::kMusicVolume), testing::AnyOf(0.0F, 0.2F, 0.5F, 1.0F));
    }
}

TEST_F(OptionsTest, AHandSetDetailShowsItsRangeAndJoinsTheCycle)
{
    ExpectRangesOf<MenuGraphics, int>(1, setting::kAsteroidsSmoothness, "Asteroid Detail:  ",
                                      {IntCase{6, "LOW", 7}, IntCase{7, "NORMAL", 9}, IntCase{8, "NORMAL", 9},
                                       IntCase{9, "HIGH", 5}, IntCase{0, "LOW", 7},
                                       IntCase{INT_MIN, "LOW", 7}, IntCase{INT_MAX, "HIGH", 5}});
}

TEST_F(OptionsTest, EffectsAreSwitchedAtOnce)
{
    Menu const& menu = Show<MenuSound>();
    Click(0);
    EXPECT_FALSE(GameSound::IsOn());
    EXPECT_EQ(Stored(setting::kSoundVolume), 0.0F);
    EXPECT_EQ(TextOf(menu, 0), "Sound Volume:  OFF");
    EXPECT_FALSE(frozen::Plays("Click.AIFF")) << "the click that switches off is not heard";
    Click(0);
    EXPECT_TRUE(GameSound::IsOn());
    EXPECT_EQ(Stored(setting::kSoundVolume), 1.0F);
    EXPECT_EQ(TextOf(menu, 0), "Sound Volume:  ON");
    EXPECT_TRUE(frozen::Plays("Click.AIFF")) << "the click that switches on is";
}

TEST_F(OptionsTest, AnyEffectsVolumeButZeroIsOn)
{
    for (float const stored : {0.3F, -1.0F, 50.0F, kNan})
    {
        GameSettings::SetFloatParam(setting::kSoundVolume, stored);
        MenuSound menu;
        EXPECT_EQ(TextOf(menu, 0), "Sound Volume:  ON");
        menu.MouseUp(0);
        EXPECT_EQ(Stored(setting::kSoundVolume), 0.0F);
        EXPECT_FALSE(GameSound::IsOn());
    }
}

TEST_F(OptionsTest, EffectsThatWereStoredAsOffAreSwitchedOnByTheFirstClick)
{
    GameSettings::SetFloatParam(setting::kSoundVolume, 0.0F);
    MenuSound menu;
    EXPECT_EQ(TextOf(menu, 0), "Sound Volume:  OFF");
    EXPECT_TRUE(GameSound::IsOn());
    menu.MouseUp(0);
    EXPECT_TRUE(GameSound::IsOn());
    EXPECT_EQ(Stored(setting::kSoundVolume), 1.0F);
}

TEST_F(OptionsTest, MusicGoesRound)
{
    Show<MenuSound>();
    ExpectRound<float>(1, setting::kMusicVolume,
                       {{1.0F, "Music Volume:  LOUD"},
                        {0.0F, "Music Volume:  OFF"},
                        {0.2F, "Music Volume:  SOFT"},
                        {0.5F, "Music Volume:  MEDIUM"}});
}

} // namespace
