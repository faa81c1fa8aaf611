// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The scene, the cockpit and the menus as a player sees them, against golden pictures.
#include "core/Game.h"
#include "locale/Language.h"
#include "pictures/Picture.h"
#include "pictures/RaceScene.h"
#include "pictures/SceneWindow.h"
#include "settings/GameSettings.h"
#include "ui/Menu.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"
#include "world/Universe.h"

#include <algorithm>
#include <string>

namespace
{

// Where a view of 640 x 480 has a menu's items, the cockpit's instruments and its read-outs.
constexpr PictureArea kItems{320, 240, 320, 200};
constexpr PictureArea kInstruments{195, 400, 140, 80};
constexpr PictureArea kReadOuts{200, 425, 440, 55};

class ScenePictures : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        SceneWindow& window = SceneWindow::shared();
        GameSettings::Initialize();
        Game::Init(window.width(), window.height()); // sets the fixed OpenGL state
    }

    static void TearDownTestSuite()
    {
        delete Game::pGame;
        Game::pGame = nullptr;
    }

    Picture DrawScene() { return m_scene.Draw(SceneWindow::shared()); }

    static Picture DrawMenu()
    {
        return SceneWindow::shared().draw([](int width, int height) { Menu::RenderCurrent(width, height); });
    }

    RaceScene m_scene;
};

TEST_F(ScenePictures, MainMenuStandsOverTheRunningScene)
{
    m_scene.universe().SetCockpitVisible(false);
    Menu::SetCurrent(new MenuMain);
    EXPECT_TRUE(LooksLike(DrawScene(), "main-menu", {kItems}));
}

// Cyrillic, kana with Han, and Han, each in another font than the English menu.
TEST_F(ScenePictures, MainMenuIsWrittenInThreeOtherScripts)
{
    m_scene.universe().SetCockpitVisible(false);
    for (char const* const name : {"uk", "ja", "zh_CN"})
    {
        language::Spoken const spoken(name);
        Menu::SetCurrent(new MenuMain);
        EXPECT_TRUE(LooksLike(DrawMenu(), std::string("main-menu-") + name));
    }
}

class CockpitPictures : public ScenePictures, public testing::WithParamInterface<Situation>
{
};

TEST_P(CockpitPictures, ShowWhereTheMarkerIs)
{
    GetParam().arrange(m_scene);
    EXPECT_TRUE(LooksLike(DrawScene(), GetParam().name, {kInstruments, kReadOuts}));
}

INSTANTIATE_TEST_SUITE_P(Situations, CockpitPictures, testing::ValuesIn(CockpitSituations()),
                         [](auto const& situation)
                         {
                             std::string name = situation.param.name;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST_F(ScenePictures, PauseMenuStandsOverTheCockpit)
{
    Menu::SetCurrent(new MenuPaused);
    EXPECT_TRUE(LooksLike(DrawScene(), "pause-menu", {kItems, kInstruments, kReadOuts}));
}

TEST_F(ScenePictures, EndOfRaceMenuShowsTimeAndRank)
{
    int const none[5] = {};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, none, 5);
    m_scene.universe().SetCockpitVisible(false);
    Menu::SetCurrent(new MenuEndGame(95));
    EXPECT_TRUE(LooksLike(DrawScene(), "end-menu", {kItems}));
}

TEST_F(ScenePictures, LackOfWhatTheyAreAboutIsRefused)
{
    Picture const scene = DrawScene();
    EXPECT_TRUE(IsLike(scene, "race-start", {kInstruments, kReadOuts}));
    EXPECT_FALSE(IsLike(scene, "pause-menu", {kItems})) << "the menu is missing";
    EXPECT_FALSE(IsLike(scene, "main-menu", {kItems}));
    m_scene.universe().SetCockpitVisible(false);
    EXPECT_FALSE(IsLike(DrawScene(), "race-start", {kInstruments}));
    EXPECT_FALSE(IsLike(DrawScene(), "race-start", {kReadOuts}));
    Picture const black(scene.width(), scene.height());
    for (char const* const page : {"fastest-times", "fastest-times-none", "options", "options-graphics",
                                   "options-sound", "options-keyboard", "credits", "main-menu-ja"})
    {
        EXPECT_FALSE(IsLike(black, page)) << page;
    }
}

TEST_F(ScenePictures, FastestTimesShowFiveRanks)
{
    int const times[5] = {83, 95, 600, 601, 3599};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, times, 5);
    Menu::SetCurrent(new MenuFastestTimes);
    EXPECT_TRUE(LooksLike(DrawMenu(), "fastest-times"));
}

TEST_F(ScenePictures, FastestTimesTellOfNone)
{
    int const none[5] = {};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, none, 5);
    Menu::SetCurrent(new MenuFastestTimes);
    EXPECT_TRUE(LooksLike(DrawMenu(), "fastest-times-none"));
}

TEST_F(ScenePictures, OptionsPages)
{
    Menu::SetCurrent(new MenuOptions);
    EXPECT_TRUE(LooksLike(DrawMenu(), "options"));
    Menu::SetCurrent(new MenuGraphics);
    EXPECT_TRUE(LooksLike(DrawMenu(), "options-graphics"));
    Menu::SetCurrent(new MenuSound);
    EXPECT_TRUE(LooksLike(DrawMenu(), "options-sound"));
    Menu::SetCurrent(new MenuKeyboard);
    EXPECT_TRUE(LooksLike(DrawMenu(), "options-keyboard"));
}

TEST_F(ScenePictures, CreditsFillTheirColumn)
{
    Menu::SetCurrent(new MenuCredits);
    EXPECT_TRUE(LooksLike(DrawMenu(), "credits"));
}

} // namespace
