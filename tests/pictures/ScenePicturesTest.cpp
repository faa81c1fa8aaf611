// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The scene, the cockpit and the menus as a player sees them, against golden pictures.
#include "core/Game.h"
#include "pictures/Picture.h"
#include "pictures/SceneWindow.h"
#include "platform/Random.h"
#include "settings/GameSettings.h"
#include "ui/Menu.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"
#include "world/Camera.h"
#include "world/Universe.h"
#include "world/Waypoint.h"

#include <memory>

namespace
{

constexpr unsigned kSeed = 2026;

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

    void SetUp() override
    {
        platform::SeedRandom(kSeed);
        m_universe = std::make_unique<Universe>();
        Menu::ClearCurrent();
    }

    // Puts the ship at an offset from the first marker, looking along a direction.
    void PlaceShip(TQ3Vector3D const& fromMarker, TQ3Vector3D const& direction)
    {
        TQ3Vector3D const& marker = m_universe->GetWaypointPosition(0);
        LookFrom({marker.x + fromMarker.x, marker.y + fromMarker.y, marker.z + fromMarker.z}, direction);
    }

    void LookFrom(TQ3Vector3D const& place, TQ3Vector3D const& direction)
    {
        Camera& camera = *m_universe->GetCamera();
        camera.Body::SetDefaults(); // an unturned ship: only that can be turned to face a point
        camera.MoveTo(place);
        camera.TurnToFace(place.x + direction.x, place.y + direction.y, place.z + direction.z);
    }

    Picture DrawScene()
    {
        return SceneWindow::shared().draw(
            [this](int width, int height)
            {
                m_universe->Render(width, height);
                Menu::RenderCurrent(width, height);
            });
    }

    static Picture DrawMenu()
    {
        return SceneWindow::shared().draw([](int width, int height) { Menu::RenderCurrent(width, height); });
    }

    std::unique_ptr<Universe> m_universe;
};

TEST_F(ScenePictures, MainMenuStandsOverTheRunningScene)
{
    m_universe->SetCockpitVisible(false);
    Menu::SetCurrent(new MenuMain);
    EXPECT_TRUE(LooksLike(DrawScene(), "main-menu"));
}

TEST_F(ScenePictures, RaceStartsOutsideTheFieldWithTheCockpit)
{
    EXPECT_TRUE(LooksLike(DrawScene(), "race-start"));
}

TEST_F(ScenePictures, DeepFieldClosesIn)
{
    LookFrom({100.5F, 100.5F, 100.5F}, {1.0F, 0.3F, 0.1F});
    m_universe->PlayerWantsToGo(0.6F);
    EXPECT_TRUE(LooksLike(DrawScene(), "deep-field"));
}

TEST_F(ScenePictures, CockpitPointsAtAMarkerAhead)
{
    PlaceShip({0.0F, 0.0F, 4.0F}, {0.0F, 0.0F, -1.0F});
    EXPECT_TRUE(LooksLike(DrawScene(), "marker-ahead"));
}

TEST_F(ScenePictures, CockpitPointsAtAMarkerBehind)
{
    PlaceShip({0.0F, 0.0F, -4.0F}, {0.0F, 0.0F, -1.0F});
    m_universe->PlayerWantsToGo(1.0F);
    EXPECT_TRUE(LooksLike(DrawScene(), "marker-behind"));
}

TEST_F(ScenePictures, CockpitPointsAtAMarkerAbove)
{
    PlaceShip({0.5F, -1.2F, 4.0F}, {0.0F, 0.0F, -1.0F});
    EXPECT_TRUE(LooksLike(DrawScene(), "marker-above"));
}

TEST_F(ScenePictures, CockpitPointsAtAMarkerBelow)
{
    PlaceShip({-0.5F, 1.2F, 4.0F}, {0.0F, 0.0F, -1.0F});
    EXPECT_TRUE(LooksLike(DrawScene(), "marker-below"));
}

TEST_F(ScenePictures, PauseMenuStandsOverTheCockpit)
{
    Menu::SetCurrent(new MenuPaused);
    EXPECT_TRUE(LooksLike(DrawScene(), "pause-menu"));
}

TEST_F(ScenePictures, EndOfRaceMenuShowsTimeAndRank)
{
    int const none[5] = {};
    GameSettings::SetIntArrayParam("RaceTimes", none, 5);
    m_universe->SetCockpitVisible(false);
    Menu::SetCurrent(new MenuEndGame(95));
    EXPECT_TRUE(LooksLike(DrawScene(), "end-menu"));
}

TEST_F(ScenePictures, FastestTimesShowFiveRanks)
{
    int const times[5] = {83, 95, 600, 601, 3599};
    GameSettings::SetIntArrayParam("RaceTimes", times, 5);
    Menu::SetCurrent(new MenuFastestTimes);
    EXPECT_TRUE(LooksLike(DrawMenu(), "fastest-times"));
}

TEST_F(ScenePictures, FastestTimesTellOfNone)
{
    int const none[5] = {};
    GameSettings::SetIntArrayParam("RaceTimes", none, 5);
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
