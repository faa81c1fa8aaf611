// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Every menu in every language, with every word that its lines can end in, in a window of 1024 x 768: no line
// reaches past the right edge.
#include "Language.h"
#include "settings/GameSettings.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"
#include "ui/Overlay.h"

#include <algorithm>
#include <array>
#include <climits>
#include <string>
#include <vector>

namespace
{

constexpr int kWindowWidth = 1024;
constexpr int kWindowHeight = 768;
constexpr int kMargins = 8; // left and right of a text, in pixels

void ExpectFits(Overlay const& overlay)
{
    probe::Box const box = probe::BoxOf(overlay);
    EXPECT_LE(box.x + box.width, kWindowWidth) << probe::TextOf(overlay);
    EXPECT_LE(box.y + box.height, kWindowHeight) << probe::TextOf(overlay);
    EXPECT_EQ(box.width > kMargins, !probe::TextOf(overlay).empty()) << "drawn and measured";
}

void ExpectFits(Menu& menu)
{
    menu.Reposition(kWindowWidth, kWindowHeight);
    menu.Render(kWindowWidth, kWindowHeight);
    for (int item = 0; item < menu.GetItemCount(); ++item)
    {
        ExpectFits(menu.GetItem(item));
    }
}

class MenuWidth : public Stage, public testing::WithParamInterface<std::string>
{
protected:
    language::Spoken const m_spoken{GetParam()};
};

std::vector<std::string> AllLanguages()
{
    auto languages = language::Shipped();
    languages.emplace_back("en");
    return languages;
}

INSTANTIATE_TEST_SUITE_P(Language, MenuWidth, testing::ValuesIn(AllLanguages()),
                         [](auto const& parameter) { return parameter.param; });

TEST_P(MenuWidth, MainMenuAndCaptions)
{
    MenuMain menu;
    ExpectFits(menu);
    for (int caption = 0; caption < MenuMain::kCaptionCount; ++caption)
    {
        ExpectFits(menu.GetCaption(caption));
    }
}

TEST_P(MenuWidth, PausedOptionsAndCredits)
{
    MenuPaused paused;
    ExpectFits(paused);
    MenuOptions options;
    ExpectFits(options);
    MenuCredits credits;
    ExpectFits(credits);
}

TEST_P(MenuWidth, EndOfRaceAtEveryRank)
{
    for (int rank = 0; rank < 5; ++rank)
    {
        std::array<int, 5> times{};
        std::fill_n(times.begin(), rank, 1);
        GameSettings::SetIntArrayParam(setting::kRaceTimes, times.data(), 5);
        MenuEndGame menu(INT_MAX);
        ASSERT_NE(probe::TextOf(menu, 1), "");
        ExpectFits(menu);
    }
}

TEST_P(MenuWidth, BestTimes)
{
    MenuFastestTimes empty;
    ExpectFits(empty);
    constexpr std::array kTimes{INT_MAX, INT_MAX, INT_MAX, INT_MAX, INT_MAX};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, kTimes.data(), 5);
    MenuFastestTimes full;
    ExpectFits(full);
}

TEST_P(MenuWidth, GraphicsAtEveryValue)
{
    for (int step = 0; step < 3; ++step)
    {
        GameSettings::SetFloatParam(setting::kFogEndHigh,
                                    std::array{40.0F, 50.0F, 65.0F}[static_cast<std::size_t>(step)]);
        GameSettings::SetIntParam(setting::kAsteroidsSmoothness, 5 + 2 * step);
        GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, step == 0 ? 0.25F : 0.5F);
        MenuGraphics menu;
        ExpectFits(menu);
    }
}

TEST_P(MenuWidth, SoundAtEveryValue)
{
    for (float const volume : {0.0F, 0.2F, 0.5F, 1.0F})
    {
        GameSettings::SetFloatParam(setting::kSoundVolume, volume);
        GameSettings::SetFloatParam(setting::kMusicVolume, volume);
        MenuSound menu;
        ExpectFits(menu);
    }
}

// All codes of named keys, and some wide characters.
TEST_P(MenuWidth, KeyboardWithEveryKey)
{
    std::vector<unsigned short> keys{0x03, 0x09, 0x0D, 0x1B, 0x20, 'W', '@', 0x4E00, 0xFFFD};
    for (unsigned short code = 0xF700; code <= 0xF746; ++code)
    {
        keys.push_back(code);
    }
    for (unsigned short const key : keys)
    {
        for (TextSetting const& binding :
             {setting::kKeyThrustUp, setting::kKeyThrustDown, setting::kKeyPause})
        {
            GameSettings::SetUniCharParam(binding, key);
        }
        GameSettings::SetIntParam(setting::kMouseInvert, key % 2);
        MenuKeyboard menu;
        ExpectFits(menu);
    }
}

TEST_P(MenuWidth, KeyboardThatWaitsForAKey)
{
    MenuKeyboard menu;
    for (int item = 0; item < 3; ++item)
    {
        menu.MouseUp(item);
    }
    ExpectFits(menu);
}

} // namespace
