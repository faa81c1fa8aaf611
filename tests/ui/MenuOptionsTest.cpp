// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSound.h"
#include "settings/GameSettings.h"
#include "support/FrozenSound.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
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
using probe::TextOf;
using probe::TextsOf;
using testing::ElementsAre;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kHuge = std::numeric_limits<float>::max();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

class OptionsTest : public Stage
{
protected:
    template <typename Kind>
    Kind& show()
    {
        auto* const menu = new Kind;
        Menu::SetCurrent(menu);
        probe::RenderCurrent();
        return *menu;
    }
};

TEST_F(OptionsTest, TheHubSaysItsFourItems)
{
    Menu const& menu = show<MenuOptions>();
    EXPECT_THAT(TextsOf(menu), ElementsAre("Graphics", "Mouse, Keyboard", "Sound", "Back to Main Menu"));
    EXPECT_EQ(probe::BoxOf(menu, 3).y, 300 + 120);
    EXPECT_EQ(probe::FontSizeOf(menu.GetItem(0)), 20.0F);
}

TEST_F(OptionsTest, TheHubLeadsToItsPages)
{
    show<MenuOptions>();
    Click(0);
    EXPECT_NE(Current<MenuGraphics>(), nullptr);
    show<MenuOptions>();
    Click(1);
    EXPECT_NE(Current<MenuKeyboard>(), nullptr);
    show<MenuOptions>();
    Click(2);
    EXPECT_NE(Current<MenuSound>(), nullptr);
    show<MenuOptions>();
    Click(3);
    EXPECT_NE(Current<MenuMain>(), nullptr);
}

TEST_F(OptionsTest, ThePagesLeadBackToTheHub)
{
    show<MenuGraphics>();
    Click(4);
    EXPECT_NE(Current<MenuOptions>(), nullptr);
    show<MenuSound>();
    Click(3);
    EXPECT_NE(Current<MenuOptions>(), nullptr);
    show<MenuKeyboard>();
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
    Menu& graphics = show<MenuGraphics>();
    MoveOnto(3);
    EXPECT_TRUE(IsHighlighted(graphics, 3));
    Click(3);
    Menu& sound = show<MenuSound>();
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
    show<MenuGraphics>();
    Click(0);
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

TEST_F(OptionsTest, ViewDistanceGoesRound)
{
    Menu const& menu = show<MenuGraphics>();
    struct
    {
        float value;
        char const* text;
    } const steps[] = {
        {65.0F, "View Distance:  HIGH"}, {40.0F, "View Distance:  LOW"}, {50.0F, "View Distance:  NORMAL"}};
    for (auto const& [value, text] : steps)
    {
        Click(0);
        EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndHigh), value);
        EXPECT_EQ(TextOf(menu, 0), text);
    }
}

TEST_F(OptionsTest, DetailGoesRound)
{
    GameSettings::SetIntParam(setting::kAsteroidsSmoothness, 5);
    Menu const& menu = show<MenuGraphics>();
    EXPECT_EQ(TextOf(menu, 1), "Asteroid Detail:  LOW");
    struct
    {
        int value;
        char const* text;
    } const steps[] = {
        {7, "Asteroid Detail:  NORMAL"}, {9, "Asteroid Detail:  HIGH"}, {5, "Asteroid Detail:  LOW"}};
    for (auto const& [value, text] : steps)
    {
        Click(1);
        EXPECT_EQ(GameSettings::GetIntParam(setting::kAsteroidsSmoothness), value);
        EXPECT_EQ(TextOf(menu, 1), text);
    }
}

TEST_F(OptionsTest, AThinnerFieldTakesTheFogAlong)
{
    Menu const& menu = show<MenuGraphics>();
    Click(2);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter), 0.25F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndLow), 30.0F);
    EXPECT_EQ(TextOf(menu, 2), "Asteroid Density:  HALF");
    Click(2);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter), 0.5F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndLow), 20.0F);
    EXPECT_EQ(TextOf(menu, 2), "Asteroid Density:  NORMAL");
}

TEST_F(OptionsTest, EachClickChangesItsOwnSettingOnly)
{
    show<MenuGraphics>();
    Click(0);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kAsteroidsSmoothness), 7);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter), 0.5F);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndLow), 20.0F);
}

struct FloatCase
{
    float stored;
    char const* word;
    float next;
};

std::ostream& operator<<(std::ostream& stream, FloatCase const& one)
{
    return stream << one.stored;
}

class ViewDistance : public Stage, public testing::WithParamInterface<FloatCase>
{
};

TEST_P(ViewDistance, AHandSetValueShowsItsRangeAndJoinsTheCycle)
{
    GameSettings::SetFloatParam(setting::kFogEndHigh, GetParam().stored);
    MenuGraphics menu;
    EXPECT_EQ(TextOf(menu, 0), std::string("View Distance:  ") + GetParam().word);
    EXPECT_TRUE(menu.MouseUp(0));
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndHigh), GetParam().next);
}

INSTANTIATE_TEST_SUITE_P(Values, ViewDistance,
                         testing::Values(FloatCase{49.999F, "LOW", 50.0F}, FloatCase{50.0F, "NORMAL", 65.0F},
                                         FloatCase{64.999F, "NORMAL", 65.0F}, FloatCase{65.0F, "HIGH", 40.0F},
                                         FloatCase{0.0F, "LOW", 50.0F}, FloatCase{-1000.0F, "LOW", 50.0F},
                                         FloatCase{kHuge, "HIGH", 40.0F}, FloatCase{kInfinity, "HIGH", 40.0F},
                                         FloatCase{-kInfinity, "LOW", 50.0F},
                                         FloatCase{kNan, "NORMAL", 65.0F}));

class Density : public Stage, public testing::WithParamInterface<FloatCase>
{
};

TEST_P(Density, AHandSetValueShowsItsRangeAndJoinsTheCycle)
{
    GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, GetParam().stored);
    GameSettings::SetFloatParam(setting::kFogEndLow, 1.0F);
    MenuGraphics menu;
    EXPECT_EQ(TextOf(menu, 2), std::string("Asteroid Density:  ") + GetParam().word);
    EXPECT_TRUE(menu.MouseUp(2));
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter), GetParam().next);
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kFogEndLow), GetParam().next == 0.5F ? 20.0F : 30.0F);
}

INSTANTIATE_TEST_SUITE_P(Values, Density,
                         testing::Values(FloatCase{0.499F, "HALF", 0.5F}, FloatCase{0.5F, "NORMAL", 0.25F},
                                         FloatCase{0.0F, "HALF", 0.5F}, FloatCase{-3.0F, "HALF", 0.5F},
                                         FloatCase{kHuge, "NORMAL", 0.25F},
                                         FloatCase{kNan, "NORMAL", 0.25F}));

class MusicVolume : public Stage, public testing::WithParamInterface<FloatCase>
{
};

TEST_P(MusicVolume, AHandSetValueShowsItsRangeAndJoinsTheCycle)
{
    GameSettings::SetFloatParam(setting::kMusicVolume, GetParam().stored);
    MenuSound menu;
    EXPECT_EQ(TextOf(menu, 1), std::string("Music Volume:  ") + GetParam().word);
    EXPECT_TRUE(menu.MouseUp(1));
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kMusicVolume), GetParam().next);
}

INSTANTIATE_TEST_SUITE_P(Values, MusicVolume,
                         testing::Values(FloatCase{0.0F, "OFF", 0.2F}, FloatCase{-0.0F, "OFF", 0.2F},
                                         FloatCase{0.001F, "SOFT", 0.5F}, FloatCase{0.2F, "SOFT", 0.5F},
                                         FloatCase{0.3F, "SOFT", 0.5F}, FloatCase{0.499F, "SOFT", 0.5F},
                                         FloatCase{0.5F, "MEDIUM", 1.0F}, FloatCase{0.999F, "MEDIUM", 1.0F},
                                         FloatCase{1.0F, "LOUD", 0.0F}, FloatCase{kHuge, "LOUD", 0.0F}));

// The ranges leave these open: what counts is one of the words and a way into the cycle.
TEST_F(OptionsTest, AMusicVolumeOutsideAllRangesJoinsTheCycle)
{
    for (float const stored : {-1.0F, -kInfinity, kNan})
    {
        GameSettings::SetFloatParam(setting::kMusicVolume, stored);
        MenuSound menu;
        EXPECT_THAT(TextOf(menu, 1), testing::StartsWith("Music Volume:  "));
        menu.MouseUp(1);
        EXPECT_THAT(GameSettings::GetFloatParam(setting::kMusicVolume),
                    testing::AnyOf(0.0F, 0.2F, 0.5F, 1.0F));
    }
}

struct IntCase
{
    int stored;
    char const* word;
    int next;
};

std::ostream& operator<<(std::ostream& stream, IntCase const& one)
{
    return stream << one.stored;
}

class Detail : public Stage, public testing::WithParamInterface<IntCase>
{
};

TEST_P(Detail, AHandSetValueShowsItsRangeAndJoinsTheCycle)
{
    GameSettings::SetIntParam(setting::kAsteroidsSmoothness, GetParam().stored);
    MenuGraphics menu;
    EXPECT_EQ(TextOf(menu, 1), std::string("Asteroid Detail:  ") + GetParam().word);
    EXPECT_TRUE(menu.MouseUp(1));
    EXPECT_EQ(GameSettings::GetIntParam(setting::kAsteroidsSmoothness), GetParam().next);
}

INSTANTIATE_TEST_SUITE_P(Values, Detail,
                         testing::Values(IntCase{6, "LOW", 7}, IntCase{7, "NORMAL", 9},
                                         IntCase{8, "NORMAL", 9}, IntCase{9, "HIGH", 5}, IntCase{0, "LOW", 7},
                                         IntCase{INT_MIN, "LOW", 7}, IntCase{INT_MAX, "HIGH", 5}));

TEST_F(OptionsTest, EffectsAreSwitchedAtOnce)
{
    Menu const& menu = show<MenuSound>();
    Click(0);
    EXPECT_FALSE(GameSound::IsOn());
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kSoundVolume), 0.0F);
    EXPECT_EQ(TextOf(menu, 0), "Sound Volume:  OFF");
    EXPECT_FALSE(frozen::Plays("Click.AIFF")) << "the click that switches off is not heard";
    Click(0);
    EXPECT_TRUE(GameSound::IsOn());
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kSoundVolume), 1.0F);
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
        EXPECT_EQ(GameSettings::GetFloatParam(setting::kSoundVolume), 0.0F);
        EXPECT_FALSE(GameSound::IsOn());
    }
}

TEST_F(OptionsTest, EffectsSoundAfterAStartWhateverWasStored)
{
    GameSettings::SetFloatParam(setting::kSoundVolume, 0.0F);
    MenuSound menu;
    EXPECT_EQ(TextOf(menu, 0), "Sound Volume:  OFF");
    EXPECT_TRUE(GameSound::IsOn());
    menu.MouseUp(0);
    EXPECT_TRUE(GameSound::IsOn());
    EXPECT_EQ(GameSettings::GetFloatParam(setting::kSoundVolume), 1.0F);
}

TEST_F(OptionsTest, MusicGoesRound)
{
    Menu const& menu = show<MenuSound>();
    struct
    {
        float value;
        char const* text;
    } const steps[] = {{1.0F, "Music Volume:  LOUD"},
                       {0.0F, "Music Volume:  OFF"},
                       {0.2F, "Music Volume:  SOFT"},
                       {0.5F, "Music Volume:  MEDIUM"}};
    for (auto const& [value, text] : steps)
    {
        Click(1);
        EXPECT_EQ(GameSettings::GetFloatParam(setting::kMusicVolume), value);
        EXPECT_EQ(TextOf(menu, 1), text);
    }
}

} // namespace
