// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/Game.h"
#include "support/FrozenSound.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/window/FakeApplication.h"
#include "ui/MenuGame.h"
#include "ui/Overlay.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using probe::BoxOf;
using probe::Click;
using probe::Current;
using testing::ElementsAre;

constexpr platform::Color kPaleBlue{0.8F, 0.8F, 1.0F, 1.0F};
constexpr platform::Color kInvisible{0.0F, 0.0F, 0.0F, 0.0F};
constexpr platform::Color kRed{1.0F, 0.4F, 0.4F, 1.0F};

enum
{
    kTitle,
    kAuthorship,
    kNews,
    kContest,
};

class MenuMainTest : public GameStage
{
protected:
    MenuMainTest() { probe::RenderCurrent(); }
    MenuMain& menu() { return *Current<MenuMain>(); }
    StringTexture const& caption(int index) { return menu().GetCaption(index).GetTexture(); }
};

TEST_F(MenuMainTest, SaysItsFiveItems)
{
    EXPECT_THAT(probe::TextsOf(menu()),
                ElementsAre("Start Race", "View Best Times", "Options", "Credits", "Quit"));
    for (int item = 0; item < 5; ++item)
    {
        EXPECT_EQ(probe::FontSizeOf(menu().GetItem(item)), 20.0F);
        EXPECT_EQ(probe::FontOf(menu().GetItem(item)), "Helvetica");
        EXPECT_TRUE(menu().DoesItemReactToMouse(item));
    }
}

TEST_F(MenuMainTest, ItemsStandInTheColumnFromTheMiddle)
{
    for (int item = 0; item < 5; ++item)
    {
        EXPECT_EQ(BoxOf(menu(), item).x, 400);
        EXPECT_EQ(BoxOf(menu(), item).y, 300 + 40 * item);
    }
}

TEST_F(MenuMainTest, TheTitleIsTheGamesNameInTwiceTheSize)
{
    EXPECT_EQ(probe::TextOf(menu().GetCaption(kTitle)), "Quarrow");
    EXPECT_EQ(probe::FontSizeOf(menu().GetCaption(kTitle)), 40.0F);
    EXPECT_EQ(caption(kTitle).textColor(), kPaleBlue);
    EXPECT_EQ(caption(kTitle).borderColor(), kPaleBlue);
}

TEST_F(MenuMainTest, CaptionsHaveTheirSizesAndColours)
{
    EXPECT_EQ(probe::FontSizeOf(menu().GetCaption(kAuthorship)), 12.0F);
    EXPECT_EQ(caption(kAuthorship).borderColor(), kInvisible);
    EXPECT_EQ(caption(kAuthorship).textColor(), kPaleBlue);
    for (int const index : {kNews, kContest})
    {
        EXPECT_EQ(probe::FontSizeOf(menu().GetCaption(index)), 13.0F);
        EXPECT_EQ(caption(index).borderColor(), kInvisible);
        EXPECT_EQ(caption(index).textColor(), kRed);
    }
    for (int index = 0; index < MenuMain::kCaptionCount; ++index)
    {
        EXPECT_EQ(probe::FontOf(menu().GetCaption(index)), "Helvetica");
        EXPECT_NE(probe::TextOf(menu().GetCaption(index)), "");
    }
}

TEST_F(MenuMainTest, CaptionsFollowTheWindow)
{
    Menu::RenderCurrent(1023, 767);
    auto const at = [this](int index)
    { return std::pair(BoxOf(menu().GetCaption(index)).x, BoxOf(menu().GetCaption(index)).y); };
    EXPECT_EQ(at(kTitle), std::pair(511, 153));
    EXPECT_EQ(at(kAuthorship), std::pair(511, 213));
    EXPECT_EQ(at(kNews), std::pair(127, 690));
    EXPECT_EQ(at(kContest), std::pair(127, 728));
    EXPECT_EQ(BoxOf(menu(), 0).x, 511);
    EXPECT_EQ(BoxOf(menu(), 0).y, 383);
}

TEST_F(MenuMainTest, CaptionsAreDrawnInOrderBeforeTheItems)
{
    auto const calls = recording::during([&] { probe::RenderCurrent(); });
    int from = 0;
    auto const nextAt = [&](double x, double y)
    {
        from = recording::indexOf(calls, recording::call("glVertex2f", {x, y}), from) + 1;
        return from;
    };
    EXPECT_GT(nextAt(400, 120), 0) << "title";
    EXPECT_GT(nextAt(400, 180), 0) << "authorship";
    EXPECT_GT(nextAt(100, 540), 0) << "news";
    EXPECT_GT(nextAt(100, 570), 0) << "contest";
    EXPECT_GT(nextAt(400, 300), 0) << "the first item";
    EXPECT_GT(nextAt(400, 460), 0) << "the last item";
}

TEST_F(MenuMainTest, StartRaceStartsARaceWithoutAMenu)
{
    Click(0);
    EXPECT_EQ(Game::pGame->GetState(), kStatePlaying);
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuMainTest, TheOtherItemsShowTheirScreens)
{
    Click(1);
    EXPECT_NE(Current<MenuFastestTimes>(), nullptr);
    probe::Show<MenuMain>();
    Click(2);
    EXPECT_NE(Current<MenuOptions>(), nullptr);
    probe::Show<MenuMain>();
    Click(3);
    EXPECT_NE(Current<MenuCredits>(), nullptr);
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
}

TEST_F(MenuMainTest, QuitAsksTheApplicationToEndAndKeepsTheMenu)
{
    int const terminations = Terminations();
    Menu const* const before = &menu();
    Click(4);
    EXPECT_EQ(Terminations(), terminations + 1);
    EXPECT_EQ(Menu::GetCurrent(), before);
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuMainTest, AnyOtherIndexDoesNothing)
{
    for (int const item : {-1, 5, 100})
    {
        EXPECT_FALSE(menu().MouseUp(item));
    }
    EXPECT_NE(Current<MenuMain>(), nullptr);
}

} // namespace
