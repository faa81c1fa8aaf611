// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/FrozenSound.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "ui/MenuGame.h"
#include "ui/Overlay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using probe::BoxOf;
using probe::Click;
using probe::MoveOnto;
using probe::TextOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr int kBack = 15;
constexpr int kItems = 17;
constexpr char const* kIndent = "     ";

class MenuCreditsTest : public Stage
{
protected:
    MenuCreditsTest() { probe::Show<MenuCredits>(); }
    Menu& menu() { return *Menu::GetCurrent(); }
};

TEST_F(MenuCreditsTest, HasSeventeenSmallItemsOfWhichTheLastIsEmpty)
{
    ASSERT_EQ(menu().GetItemCount(), kItems);
    for (int item = 0; item < kItems; ++item)
    {
        EXPECT_EQ(probe::FontSizeOf(menu().GetItem(item)), 13.0F);
        EXPECT_EQ(probe::FontOf(menu().GetItem(item)), "Helvetica");
        EXPECT_EQ(TextOf(menu(), item).empty(), item == 16) << item;
    }
    EXPECT_EQ(TextOf(menu(), kBack), "Back to Main Menu");
}

TEST_F(MenuCreditsTest, LinesAreOpenedAsTheirRolesWant)
{
    EXPECT_THAT(TextOf(menu(), 1), StartsWith(" * "));
    for (int const item : {5, 6, 7, 8, 10, 11, 12, 13})
    {
        EXPECT_THAT(TextOf(menu(), item), StartsWith(kIndent)) << item;
        EXPECT_THAT(TextOf(menu(), item), Not(StartsWith("      "))) << item;
    }
    for (int const item : {0, 2, 3, 4, 9, 14})
    {
        EXPECT_THAT(TextOf(menu(), item), Not(StartsWith(" "))) << item;
    }
}

TEST_F(MenuCreditsTest, EachTrackIsNamedInQuotes)
{
    int item = 10;
    for (char const* track : {"'Sable'", "'Electro0032'", "'SerialK'", "'Aai_Tookai'"})
    {
        bool found = false;
        for (int line = 10; line <= 13; ++line)
        {
            found = found || TextOf(menu(), line).find(track) != std::string::npos;
        }
        EXPECT_TRUE(found) << track;
        EXPECT_THAT(TextOf(menu(), item), HasSubstr(".example")) << "a contact";
        ++item;
    }
}

TEST_F(MenuCreditsTest, TheColumnStartsATenthInAndASixthDown)
{
    for (int item = 0; item < kItems; ++item)
    {
        EXPECT_EQ(BoxOf(menu(), item).x, 80);
        EXPECT_EQ(BoxOf(menu(), item).y, 100 + 26 * item);
    }
}

TEST_F(MenuCreditsTest, AResizeMovesTheWholeColumn)
{
    Menu::RenderCurrent(1279, 719);
    for (int item = 0; item < kItems; ++item)
    {
        EXPECT_EQ(BoxOf(menu(), item).x, 127);
        EXPECT_EQ(BoxOf(menu(), item).y, 119 + 26 * item);
    }
    probe::Box const box = BoxOf(menu(), kBack);
    EXPECT_EQ(menu().PointToIOverlay(box.x, 719 - box.y), kBack) << "the pointer is met in the new window";
}

TEST_F(MenuCreditsTest, NoLineRunsOutOfTheWindow)
{
    Menu::RenderCurrent(1024, 768);
    for (int item = 0; item < kItems; ++item)
    {
        EXPECT_LE(BoxOf(menu(), item).x + BoxOf(menu(), item).width, 1024) << TextOf(menu(), item);
        EXPECT_LE(BoxOf(menu(), item).y + BoxOf(menu(), item).height, 768) << TextOf(menu(), item);
    }
}

TEST_F(MenuCreditsTest, EnglishLinesFitTheNarrowestWindow)
{
    Menu::RenderCurrent(640, 480);
    for (int item = 0; item < kItems; ++item)
    {
        EXPECT_LE(BoxOf(menu(), item).x + BoxOf(menu(), item).width, 640) << TextOf(menu(), item);
    }
}

TEST_F(MenuCreditsTest, LinesNeitherHighlightNorSound)
{
    for (int item = 0; item < kItems; ++item)
    {
        if (item != kBack)
        {
            MoveOnto(item);
            EXPECT_TRUE(probe::IsNormal(menu(), item)) << item;
        }
        EXPECT_EQ(menu().DoesItemReactToMouse(item), item == kBack) << item;
    }
    EXPECT_FALSE(frozen::Plays("Rollover.AIFF"));
    MoveOnto(kBack);
    EXPECT_TRUE(probe::IsHighlighted(menu(), kBack));
    EXPECT_TRUE(frozen::Plays("Rollover.AIFF"));
}

TEST_F(MenuCreditsTest, OnlyTheWayBackTakesAClick)
{
    for (int item = -1; item <= kItems; ++item)
    {
        if (item != kBack)
        {
            EXPECT_FALSE(menu().MouseUp(item)) << item;
        }
    }
    Click(3);
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
    Click(kBack);
    EXPECT_NE(probe::Current<MenuMain>(), nullptr);
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

} // namespace
