// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The menus of a race: pause, end of race with its ranking, and the best times.
#include "audio/GameMusic.h"
#include "core/Game.h"
#include "settings/GameSettings.h"
#include "support/FrozenSound.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "ui/MenuGame.h"
#include "ui/Overlay.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

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

using Times = std::array<int, 5>;

void Store(Times const& times)
{
    GameSettings::SetIntArrayParam(setting::kRaceTimes, times.data(), 5);
}

Times Stored()
{
    Times times{-1, -1, -1, -1, -1};
    GameSettings::GetIntArrayParam(setting::kRaceTimes, times.data(), 5);
    return times;
}

class MenuPausedTest : public GameStage
{
protected:
    MenuPausedTest()
    {
        Game::pGame->SwitchToState(kStatePlaying);
        Game::pGame->SwitchToState(kStatePaused);
        Game::pGame->GetUniverse()->Pause();
        probe::RenderCurrent();
    }
    MenuPaused& menu() { return *Current<MenuPaused>(); }
};

TEST_F(MenuPausedTest, SaysTwoItemsAndKeepsTwoEmpty)
{
    EXPECT_THAT(TextsOf(menu()), ElementsAre("Continue Race", "Main Menu", "", ""));
    EXPECT_EQ(probe::BoxOf(menu(), 1).y, 340);
    EXPECT_EQ(probe::FontSizeOf(menu().GetItem(0)), 20.0F);
}

TEST_F(MenuPausedTest, TheEmptyItemsHighlightButDoNothing)
{
    for (int const item : {2, 3})
    {
        frozen::Silence();
        MoveOnto(item);
        EXPECT_TRUE(IsHighlighted(menu(), item));
        EXPECT_TRUE(frozen::Plays("Rollover.AIFF"));
        Click(item);
        EXPECT_FALSE(frozen::Plays("Click.AIFF"));
        EXPECT_EQ(Game::pGame->GetState(), kStatePaused);
    }
}

TEST_F(MenuPausedTest, ContinueResumes)
{
    Click(0);
    EXPECT_EQ(Game::pGame->GetState(), kStatePlaying);
    EXPECT_FALSE(Game::pGame->GetUniverse()->IsPaused());
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
}

TEST_F(MenuPausedTest, MainMenuStopsTheMusic)
{
    GameMusic const& track = *GameMusic::GetTrack(GameMusic::GetCurrentTrack());
    ASSERT_TRUE(track.IsPlaying());
    Click(1);
    EXPECT_FALSE(track.IsPlaying());
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
    EXPECT_NE(Current<MenuMain>(), nullptr);
}

TEST_F(MenuPausedTest, AnyOtherIndexDoesNothing)
{
    for (int const item : {-1, 2, 3, 4})
    {
        EXPECT_FALSE(menu().MouseUp(item));
    }
}

using MenuEndGameTest = GameStage;

TEST_F(MenuEndGameTest, TheFirstTimeEverRanksFirst)
{
    MenuEndGame const menu(95);
    EXPECT_THAT(TextsOf(menu), ElementsAre("Total Time: 1:35", "Your time is ranked: FIRST", "",
                                           "Restart Race", "Main Menu"));
    EXPECT_THAT(Stored(), ElementsAre(95, 0, 0, 0, 0));
}

TEST_F(MenuEndGameTest, ATimeEqualToAStoredOneRanksAfterIt)
{
    Store({60, 70, 80, 90, 100});
    MenuEndGame const menu(70);
    EXPECT_EQ(TextOf(menu, 1), "Your time is ranked: THIRD");
    EXPECT_THAT(Stored(), ElementsAre(60, 70, 70, 80, 90));
}

TEST_F(MenuEndGameTest, ATimeThatIsNotAmongTheBestIsNotStored)
{
    std::array<int, 6> const six{60, 70, 80, 90, 100, 110}; // five would be left of them
    GameSettings::SetIntArrayParam(setting::kRaceTimes, six.data(), 6);
    for (int const time : {100, 120})
    {
        MenuEndGame const menu(time);
        EXPECT_EQ(TextOf(menu, 1), "");
        std::array<int, 6> stored{};
        GameSettings::GetIntArrayParam(setting::kRaceTimes, stored.data(), 6);
        EXPECT_EQ(stored, six);
    }
}

TEST_F(MenuEndGameTest, EveryRankHasItsWord)
{
    struct
    {
        int time;
        char const* word;
        Times stored;
    } const cases[] = {
        {1, "FIRST", {1, 10, 20, 30, 40}},   {11, "SECOND", {10, 11, 20, 30, 40}},
        {21, "THIRD", {10, 20, 21, 30, 40}}, {31, "FOURTH", {10, 20, 30, 31, 40}},
        {41, "FIFTH", {10, 20, 30, 40, 41}},
    };
    for (auto const& [time, word, stored] : cases)
    {
        Store({10, 20, 30, 40, 50});
        MenuEndGame const menu(time);
        EXPECT_EQ(TextOf(menu, 1), std::string("Your time is ranked: ") + word);
        EXPECT_EQ(Stored(), stored);
    }
}

TEST_F(MenuEndGameTest, AnEmptySlotTakesAnyTime)
{
    Store({60, 70, 0, 0, 0});
    MenuEndGame const menu(5000);
    EXPECT_EQ(TextOf(menu, 0), "Total Time: 83:20");
    EXPECT_EQ(TextOf(menu, 1), "Your time is ranked: THIRD");
    EXPECT_THAT(Stored(), ElementsAre(60, 70, 5000, 0, 0));
}

TEST_F(MenuEndGameTest, ARaceOfNoTimeIsStoredAndReadsAsAnEmptySlot)
{
    Store({60, 70, 0, 0, 0});
    MenuEndGame const menu(0);
    EXPECT_EQ(TextOf(menu, 0), "Total Time: 0:00");
    EXPECT_EQ(TextOf(menu, 1), "Your time is ranked: FIRST");
    EXPECT_THAT(Stored(), ElementsAre(0, 60, 70, 0, 0));
    MenuEndGame const next(65);
    EXPECT_EQ(TextOf(next, 1), "Your time is ranked: FIRST");
}

TEST_F(MenuEndGameTest, ARaceOfNoTimeRanksFirstInAnEmptyTable)
{
    MenuEndGame const menu(0);
    EXPECT_EQ(TextOf(menu, 1), "Your time is ranked: FIRST");
    EXPECT_THAT(Stored(), ElementsAre(0, 0, 0, 0, 0));
    EXPECT_EQ(TextOf(MenuFastestTimes(), 2), "(No race times recorded yet)");
}

TEST_F(MenuEndGameTest, AListOfAnotherLengthIsReadAsFive)
{
    std::array<int, 7> const tooMany{10, 20, 30, 40, 50, 60, 70};
    GameSettings::SetIntArrayParam(setting::kRaceTimes, tooMany.data(), 7);
    MenuEndGame const first(45);
    EXPECT_EQ(TextOf(first, 1), "Your time is ranked: FIFTH");
    EXPECT_THAT(Stored(), ElementsAre(10, 20, 30, 40, 45));
    GameSettings::SetIntArrayParam(setting::kRaceTimes, tooMany.data(), 1);
    MenuEndGame const second(45);
    EXPECT_EQ(TextOf(second, 1), "Your time is ranked: SECOND");
    EXPECT_THAT(Stored(), ElementsAre(10, 45, 0, 0, 0));
}

TEST_F(MenuEndGameTest, NegativeStoredTimesNeverCrash)
{
    Store({-5, -4, -3, -2, -1});
    MenuEndGame const menu(10);
    EXPECT_EQ(TextOf(menu, 1), "");
    EXPECT_THAT(Stored(), ElementsAre(-5, -4, -3, -2, -1));
}

TEST_F(MenuEndGameTest, OnlyTheLastTwoItemsReact)
{
    auto& menu = Show<MenuEndGame>(95);
    for (int item = 0; item < 5; ++item)
    {
        EXPECT_EQ(menu.DoesItemReactToMouse(item), item > 2) << item;
        MoveOnto(item);
        EXPECT_EQ(IsHighlighted(menu, item), item > 2) << item;
    }
}

TEST_F(MenuEndGameTest, CaptionsTakeNoClicks)
{
    MenuEndGame menu(95);
    for (int const item : {-1, 0, 1, 2, 5})
    {
        EXPECT_FALSE(menu.MouseUp(item));
    }
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
}

TEST_F(MenuEndGameTest, RestartStartsARace)
{
    Show<MenuEndGame>(95);
    Click(3);
    EXPECT_EQ(Game::pGame->GetState(), kStatePlaying);
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
}

TEST_F(MenuEndGameTest, MainMenuLeadsBack)
{
    Show<MenuEndGame>(95);
    Click(4);
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
    EXPECT_NE(Current<MenuMain>(), nullptr);
}

using MenuFastestTimesTest = GameStage;

constexpr char const* kNone = "(No race times recorded yet)";
constexpr char const* kClear = "Clear Fastest Times";

TEST_F(MenuFastestTimesTest, TimesAreListedByRank)
{
    Store({83, 95, 0, 0, 0});
    EXPECT_THAT(TextsOf(MenuFastestTimes()),
                ElementsAre("#1:  1:23", "#2:  1:35", "", "", "", "", kClear, "Main Menu"));
}

TEST_F(MenuFastestTimesTest, AllFiveTimesAreShown)
{
    Store({5, 600, 601, 659, 6000});
    EXPECT_THAT(TextsOf(MenuFastestTimes()),
                ElementsAre("#1:  0:05", "#2:  10:00", "#3:  10:01", "#4:  10:59", "#5:  100:00", "", kClear,
                            "Main Menu"));
}

TEST_F(MenuFastestTimesTest, AnEmptySlotLeavesAGap)
{
    Store({0, 95, -7, 100, 0});
    EXPECT_THAT(TextsOf(MenuFastestTimes()),
                ElementsAre("", "#2:  1:35", "", "#4:  1:40", "", "", kClear, "Main Menu"));
}

TEST_F(MenuFastestTimesTest, WithoutTimesItSaysSo)
{
    EXPECT_THAT(TextsOf(MenuFastestTimes()), ElementsAre("", "", kNone, "", "", "", kClear, "Main Menu"));
    Store({0, -1, 0, 0, 0});
    EXPECT_EQ(TextOf(MenuFastestTimes(), 2), kNone);
}

TEST_F(MenuFastestTimesTest, OnlyTheLastTwoItemsReact)
{
    MenuFastestTimes menu;
    for (int item = 0; item < 8; ++item)
    {
        EXPECT_EQ(menu.DoesItemReactToMouse(item), item > 5) << item;
    }
    for (int const item : {-1, 0, 1, 2, 3, 4, 5, 8})
    {
        EXPECT_FALSE(menu.MouseUp(item)) << item;
    }
}

TEST_F(MenuFastestTimesTest, ClearingShowsTheEmptyListAtOnce)
{
    Store({83, 95, 100, 110, 120});
    Show<MenuFastestTimes>();
    MoveOnto(6);
    Click(6);
    EXPECT_THAT(Stored(), ElementsAre(0, 0, 0, 0, 0));
    auto* const fresh = Current<MenuFastestTimes>();
    ASSERT_NE(fresh, nullptr);
    EXPECT_THAT(TextsOf(*fresh), ElementsAre("", "", kNone, "", "", "", kClear, "Main Menu"));
    EXPECT_TRUE(probe::IsNormal(*fresh, 6));
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuFastestTimesTest, MainMenuLeadsBack)
{
    Show<MenuFastestTimes>();
    Click(7);
    EXPECT_NE(Current<MenuMain>(), nullptr);
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
}

} // namespace
