// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How the game starts, and every way from one state to another.
#include "core/Game.h"

#include "audio/GameMusic.h"
#include "audio/GameSound.h"
#include "platform/base/Clock.h"
#include "platform/base/OpenGL.h"
#include "platform/base/Random.h"
#include "settings/GameSettings.h"
#include "support/CapturedLog.h"
#include "support/FrozenSound.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/window/EventFactory.h"
#include "ui/MenuGame.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace
{

using recording::call;
using testing::Contains;

class GameTest : public GameStage
{
protected:
    Game& game() { return *Game::pGame; }
    Universe& world() { return *game().GetUniverse(); }

    void pressPause() { send(events::KeyDown(u"\x1B")); }
    void frame() { game().Render(probe::kWidth, probe::kHeight); }

    // A click of the player on an item of the current menu.
    void click(int item)
    {
        frame();
        probe::Box const box = probe::BoxOf(*Menu::GetCurrent(), item);
        send(events::LeftUp(static_cast<float>(box.x + box.width / 2),
                            static_cast<float>(probe::kHeight - box.y - box.height / 2)));
    }
    void startRace() { click(0); }

    // Ends the race by putting the ship into the last marker.
    void finishRace()
    {
        world().ActivateWaypoint(Universe::kWaypointCount - 1);
        world().GetCamera()->MoveTo(world().GetWaypointPosition(Universe::kWaypointCount - 1));
        world().Tick(0.001);
    }

    static bool musicPlays()
    {
        int const track = GameMusic::GetCurrentTrack();
        return track >= 0 && GameMusic::GetTrack(track)->IsPlaying();
    }
};

class GameInARace : public GameTest
{
protected:
    GameInARace() { startRace(); }
};

TEST_F(GameTest, StartsInTheMainMenuOverAMovingWorld)
{
    EXPECT_EQ(game().GetState(), kStateMenu);
    EXPECT_NE(probe::Current<MenuMain>(), nullptr);
    EXPECT_TRUE(world().IsCockpitHidden());
    EXPECT_FALSE(world().IsPaused());
    EXPECT_EQ(world().GetCamera()->GetTargetVPct(), 0.0F);
    EXPECT_FALSE(game().WasDebugKeySeen());
    world().Tick(0.25);
    EXPECT_EQ(world().GetRaceTime(), 0.25);
}

TEST_F(GameTest, StartsWithTheFanfare)
{
    EXPECT_TRUE(frozen::Plays("Fanfare.AIFF"));
    EXPECT_FALSE(frozen::Plays("Starter.AIFF"));
    EXPECT_FALSE(frozen::Plays("HiScore.AIFF"));
    EXPECT_FALSE(frozen::Plays("Controls.AIFF"));
}

TEST_F(GameTest, TheFrameRateIsInfiniteBeforeTheFirstFrame)
{
    EXPECT_EQ(game().GetFPS(), HUGE_VALF);
}

TEST_F(Stage, TheFirstFrameLastsSinceConstruction)
{
    std::uint64_t const before = platform::UpTime();
    Game game(probe::kWidth, probe::kHeight);
    std::uint64_t const made = platform::UpTime();
    std::uint64_t const ticked = platform::UpTime();
    game.Tick();
    double const elapsed = 1.0 / static_cast<double>(game.GetFPS());
    EXPECT_GE(elapsed, platform::SecondsBetween(made, ticked) * 0.999);
    EXPECT_LE(elapsed, platform::SecondsBetween(before, platform::UpTime()) * 1.001);
    EXPECT_GT(elapsed, 0.0);
}

TEST_F(Stage, ATickHandsTheMeasuredTimeToTheWorld)
{
    Game game(probe::kWidth, probe::kHeight);
    game.Tick();
    double const elapsed = 1.0 / static_cast<double>(game.GetFPS());
    EXPECT_NEAR(game.GetUniverse()->GetRaceTime(), elapsed, 1e-6 * elapsed);
}

TEST_F(Stage, TheFieldFollowsFromTheTimeOfDay)
{
    std::time_t const before = std::time(nullptr);
    Game const game(probe::kWidth, probe::kHeight);
    std::time_t const after = std::time(nullptr);
    bool found = false;
    for (std::time_t seed = before; seed <= after; ++seed)
    {
        platform::SeedRandom(static_cast<unsigned>(seed));
        Universe const same;
        bool equal = true;
        for (int i = 0; i < Universe::kWaypointCount; ++i)
        {
            TQ3Vector3D const& mine = same.GetWaypointPosition(i);
            TQ3Vector3D const& its = game.GetUniverse()->GetWaypointPosition(i);
            equal = equal && mine.x == its.x && mine.y == its.y && mine.z == its.z;
        }
        for (int cell = 0; cell < 16 * 16 * 16; ++cell)
        {
            int const x = 112 + cell / 256;
            int const y = 112 + cell / 16 % 16;
            int const z = 112 + cell % 16;
            equal = equal && (same.RoidAtCell(x, y, z) == nullptr) ==
                                 (game.GetUniverse()->RoidAtCell(x, y, z) == nullptr);
        }
        found = found || equal;
    }
    EXPECT_TRUE(found);
}

TEST_F(Stage, ConstructionSetsTheFixedState)
{
    auto const calls = recording::during([&] { Game const game(probe::kWidth, probe::kHeight); });
    std::vector<recording::Call> const wanted{
        call("glShadeModel", {GL_SMOOTH}),
        call("glClearDepth", {1.0}),
        call("glEnable", {GL_DEPTH_TEST}),
        call("glDepthFunc", {GL_LEQUAL}),
        call("glHint", {GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST}),
        call("glLightModeli", {GL_LIGHT_MODEL_LOCAL_VIEWER, 1}),
        call("glLightModeli", {GL_LIGHT_MODEL_TWO_SIDE, 0}),
        call("glLightfv", {GL_LIGHT0, GL_AMBIENT, 0.1F, 0.1F, 0.1F, 1.0F}),
        call("glLightfv", {GL_LIGHT0, GL_DIFFUSE, 0.5F, 0.5F, 0.5F, 1.0F}),
        call("glLightfv", {GL_LIGHT0, GL_SPECULAR, 0.6F, 0.6F, 0.6F, 1.0F}),
        call("glEnable", {GL_LIGHTING}),
        call("glEnable", {GL_LIGHT0}),
        call("glEnable", {GL_CULL_FACE}),
        call("glCullFace", {GL_BACK}),
        call("glFrontFace", {GL_CCW}),
        call("glEnable", {GL_TEXTURE_2D}),
        call("glEnable", {GL_BLEND}),
        call("glBlendFunc", {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA}),
        call("glStencilMask", {0}),
        call("glClearColor", {0, 0, 0, 0}),
        call("glBindTexture", {GL_TEXTURE_2D, 0}),
        call("glTexImage2D", {GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE}),
        call("glTexParameteri", {GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR}),
        call("glGetIntegerv", {GL_ALPHA_BITS}),
        call("glGetIntegerv", {GL_STENCIL_BITS}),
        call("glGetIntegerv", {GL_DEPTH_BITS}),
    };
    ASSERT_GE(calls.size(), wanted.size());
    std::vector const first(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(wanted.size()));
    ASSERT_EQ(first, wanted);
    EXPECT_EQ(recording::uploads()[0].texture, 0U);
    EXPECT_EQ(recording::uploads()[0].pixels, std::vector<std::uint8_t>(4, 255)) << "it is not white";
    EXPECT_GE(recording::indexOf(calls, "glTexImage2D", static_cast<int>(wanted.size())), 0)
        << "the world comes after the fixed state";
}

TEST_F(Stage, ConstructionPlacesNoLight)
{
    auto const calls = recording::during([] { Game const game(probe::kWidth, probe::kHeight); });
    for (recording::Call const& made : calls)
    {
        EXPECT_FALSE(made.name == "glLightfv" && made.arguments[1] == GL_POSITION);
    }
}

TEST_F(Stage, ConstructionLogsWhatTheContextHas)
{
    recording::setInteger(GL_ALPHA_BITS, 8);
    recording::setInteger(GL_STENCIL_BITS, 1);
    recording::setInteger(GL_DEPTH_BITS, 32);
    CapturedLog log;
    Game const game(probe::kWidth, probe::kHeight);
    EXPECT_THAT(log.lines(), Contains("Alpha bits  = 8, Stencil bits = 1, Depth bits = 32"));
}

TEST_F(Stage, TheDestructorLeavesNoMenu)
{
    {
        Game const game(probe::kWidth, probe::kHeight);
        ASSERT_NE(Menu::GetCurrent(), nullptr);
    }
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
}

TEST_F(GameTest, StartRaceFromTheMainMenuBringsANewWorld)
{
    world().Tick(1.0);
    startRace();
    EXPECT_EQ(game().GetState(), kStatePlaying);
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
    EXPECT_EQ(world().GetRaceTime(), 0.0);
    EXPECT_FALSE(world().IsCockpitHidden());
    EXPECT_FALSE(world().IsPaused());
}

TEST_F(GameTest, ARaceTakesTheSkyOfTheWorldBefore)
{
    constexpr int kSkySize = 1024;
    unsigned long const sky = world().GetSkyTexture();
    recording::during([this] { startRace(); });
    EXPECT_EQ(world().GetSkyTexture(), sky);
    EXPECT_TRUE(recording::textures().contains(static_cast<unsigned>(sky)));
    for (recording::Upload const& upload : recording::uploads())
    {
        EXPECT_LT(upload.width, kSkySize);
    }
}

TEST_F(GameTest, ARaceStartsTheNextTrack)
{
    int const before = GameSettings::GetIntParam(setting::kMusicLastTrackIndex);
    startRace();
    EXPECT_TRUE(musicPlays());
    EXPECT_EQ(GameSettings::GetIntParam(setting::kMusicLastTrackIndex),
              (before + 1) % GameMusic::kTrackCount);
}

TEST_F(GameTest, EachRaceReadsTheMusicVolumeAgain)
{
    GameSettings::SetFloatParam(setting::kMusicVolume, 0.0F);
    startRace();
    EXPECT_FALSE(musicPlays());
    game().SwitchToState(kStateMenu);
    GameSettings::SetFloatParam(setting::kMusicVolume, 0.5F);
    game().SwitchToState(kStatePlaying);
    EXPECT_TRUE(musicPlays());
}

TEST_F(GameTest, MusicPlaysWithTheEffectsSwitchedOff)
{
    GameSound::SetVolume(false);
    startRace();
    EXPECT_TRUE(musicPlays());
}

TEST_F(Stage, EffectsSoundAfterAStartWhateverWasStored)
{
    GameSettings::SetFloatParam(setting::kSoundVolume, 0.0F);
    Game const game(probe::kWidth, probe::kHeight);
    EXPECT_TRUE(frozen::Plays("Fanfare.AIFF"));
}

TEST_F(GameInARace, ThePauseKeyFreezesTheRace)
{
    pressPause();
    EXPECT_EQ(game().GetState(), kStatePaused);
    EXPECT_NE(probe::Current<MenuPaused>(), nullptr);
    EXPECT_TRUE(world().IsPaused());
    EXPECT_FALSE(world().IsCockpitHidden());
    EXPECT_TRUE(musicPlays());
}

TEST_F(GameInARace, PausedByOtherThanTheKeyItStaysPaused)
{
    game().PauseRace();
    game().PauseRace();
    EXPECT_EQ(game().GetState(), kStatePaused);
    EXPECT_NE(probe::Current<MenuPaused>(), nullptr);
    EXPECT_TRUE(world().IsPaused());
}

TEST_F(GameTest, OutsideARaceThereIsNothingToPause)
{
    game().PauseRace();
    EXPECT_EQ(game().GetState(), kStateMenu);
    EXPECT_EQ(probe::Current<MenuPaused>(), nullptr);
    EXPECT_FALSE(world().IsPaused());
}

TEST_F(GameInARace, SwitchingToPausedAloneDoesNotPauseTheWorld)
{
    game().SwitchToState(kStatePaused);
    EXPECT_EQ(game().GetState(), kStatePaused);
    EXPECT_FALSE(world().IsPaused());
}

TEST_F(GameInARace, ThePauseKeyTwiceResumesTheSameWorld)
{
    Universe const* const raced = &world();
    world().Tick(2.0);
    pressPause();
    pressPause();
    EXPECT_EQ(game().GetState(), kStatePlaying);
    EXPECT_EQ(&world(), raced);
    EXPECT_EQ(world().GetRaceTime(), 2.0);
    EXPECT_FALSE(world().IsPaused());
}

TEST_F(GameInARace, ContinueRaceResumesTheSameWorld)
{
    world().Tick(2.0);
    pressPause();
    click(0);
    EXPECT_EQ(game().GetState(), kStatePlaying);
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
    EXPECT_EQ(world().GetRaceTime(), 2.0);
    EXPECT_FALSE(world().IsPaused());
}

TEST_F(GameInARace, QuittingAPausedRaceLeavesTheWorldFrozenBehindTheMainMenu)
{
    world().Tick(2.0);
    send(events::KeyDown(u"w"));
    pressPause();
    click(1);
    EXPECT_EQ(game().GetState(), kStateMenu);
    EXPECT_NE(probe::Current<MenuMain>(), nullptr);
    EXPECT_TRUE(world().IsPaused());
    EXPECT_TRUE(world().IsCockpitHidden());
    EXPECT_EQ(world().GetCamera()->GetTargetVPct(), 0.0F);
    EXPECT_FALSE(musicPlays());
    game().Tick();
    EXPECT_EQ(world().GetRaceTime(), 2.0);
}

TEST_F(GameInARace, TheLastWaypointEndsTheRace)
{
    frozen::Silence();
    finishRace();
    EXPECT_EQ(game().GetState(), kStateMenu);
    EXPECT_NE(probe::Current<MenuEndGame>(), nullptr);
    EXPECT_TRUE(world().IsPaused());
    EXPECT_TRUE(world().IsCockpitHidden());
    EXPECT_TRUE(frozen::Plays("Fanfare.AIFF"));
    EXPECT_FALSE(musicPlays());
}

TEST_F(GameInARace, TheResultIsTheRaceTimeInWholeSeconds)
{
    world().Tick(95.75);
    game().SwitchToState(kStateRaceOver);
    EXPECT_EQ(game().GetState(), kStateMenu);
    EXPECT_EQ(probe::TextOf(*Menu::GetCurrent(), 0), "Total Time: 1:35");
}

TEST_F(GameInARace, RestartAfterARaceBringsANewWorld)
{
    world().Tick(2.0);
    finishRace();
    click(3);
    EXPECT_EQ(game().GetState(), kStatePlaying);
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
    EXPECT_EQ(world().GetRaceTime(), 0.0);
    EXPECT_EQ(world().GetCurrentWaypoint(), 0);
    EXPECT_FALSE(world().IsPaused());
    EXPECT_TRUE(musicPlays());
}

TEST_F(GameInARace, TheMainMenuAfterARaceKeepsTheWorldFrozen)
{
    finishRace();
    click(4);
    EXPECT_EQ(game().GetState(), kStateMenu);
    EXPECT_NE(probe::Current<MenuMain>(), nullptr);
    EXPECT_TRUE(world().IsPaused());
}

TEST_F(GameTest, TheBestTimesLeadBackToTheMainMenu)
{
    click(1);
    ASSERT_NE(probe::Current<MenuFastestTimes>(), nullptr);
    click(7);
    EXPECT_EQ(game().GetState(), kStateMenu);
    EXPECT_NE(probe::Current<MenuMain>(), nullptr);
}

TEST_F(GameTest, EveryScreenOfTheMainMenuLeadsBack)
{
    click(2);
    ASSERT_NE(probe::Current<MenuOptions>(), nullptr);
    click(3);
    ASSERT_NE(probe::Current<MenuMain>(), nullptr);
    click(3);
    ASSERT_NE(probe::Current<MenuCredits>(), nullptr);
    click(15);
    EXPECT_NE(probe::Current<MenuMain>(), nullptr);
    EXPECT_EQ(game().GetState(), kStateMenu);
}

TEST_F(GameInARace, AnUnknownStateIsOnlyStored)
{
    world().Tick(2.0);
    constexpr auto kUnknown = static_cast<GameState>(7);
    game().SwitchToState(kUnknown);
    EXPECT_EQ(game().GetState(), kUnknown);
    pressPause();
    EXPECT_EQ(game().GetState(), kUnknown);
    EXPECT_FALSE(world().IsPaused());
    game().SwitchToState(kStatePlaying);
    EXPECT_EQ(game().GetState(), kStatePlaying);
    EXPECT_EQ(world().GetRaceTime(), 2.0) << "the world is replaced only when a race starts from a menu";
}

TEST_F(GameTest, MenusAreDrawnInEveryStateButARace)
{
    auto const draws = [this] { return recording::count(recording::during([&] { frame(); }), "gluOrtho2D"); };
    int const withMainMenu = draws();
    EXPECT_GE(withMainMenu, 9) << "five items and four captions";
    startRace();
    int const racing = draws();
    pressPause();
    EXPECT_EQ(draws(), racing + 4) << "the pause menu's items over the race";
    pressPause();
    ASSERT_NE(Menu::GetCurrent(), nullptr) << "the key resumes without taking the menu away";
    EXPECT_EQ(draws(), racing);
}

TEST_F(GameTest, TexturesAndListsDoNotPileUpOverRaces)
{
    auto const raceOnce = [this]
    {
        click(probe::Current<MenuMain>() != nullptr ? 0 : 3);
        world().Tick(1.5);
        frame();
        finishRace();
        frame();
    };
    raceOnce();
    auto const textures = recording::textures().size();
    auto const lists = recording::lists().size();
    for (int race = 0; race < 50; ++race)
    {
        raceOnce();
    }
    EXPECT_EQ(recording::textures().size(), textures);
    EXPECT_EQ(recording::lists().size(), lists);
}

} // namespace
