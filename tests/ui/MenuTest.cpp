// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What every menu does, shown by one that records its calls.
#include "ui/Menu.h"

#include "audio/GameSound.h"
#include "support/FrozenSound.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/window/EventFactory.h"
#include "ui/Overlay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using probe::Box;
using probe::BoxOf;
using probe::Click;
using probe::IsHighlighted;
using probe::IsNormal;
using probe::kHeight;
using probe::kWidth;
using probe::MoveOnto;
using probe::MoveTo;
using probe::RenderCurrent;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// The calls of a menu; outlives it.
struct Notes
{
    std::vector<int> clicks;
    std::vector<int> keys;
    std::vector<std::pair<int, int>> layouts;
    int renders = 0;
    int destroyed = 0;
    bool clickedWhenDestroyed = false; // the click sounded before the menu was destroyed
};

// Item 2 of it is a caption. A click on item 1 puts an empty menu in its place.
class NotingMenu : public Menu
{
public:
    explicit NotingMenu(Notes* notes, int itemCount = 4, int fontSize = 20)
        : Menu(0, 0, itemCount, "Helvetica", fontSize),
          m_notes(notes)
    {
        for (int item = 0; item < itemCount; ++item)
        {
            SetItem(item, "an item");
        }
    }
    ~NotingMenu() override
    {
        ++m_notes->destroyed;
        m_notes->clickedWhenDestroyed = frozen::Plays("Click.AIFF");
    }

    bool MouseUp(int item) override
    {
        m_notes->clicks.push_back(item);
        if (item == 1)
        {
            SetCurrent(nullptr);
            return true;
        }
        return item == 0;
    }
    bool DoesItemReactToMouse(int item) const override { return item != 2; }
    bool KeyDown(unsigned short ch) override
    {
        m_notes->keys.push_back(ch);
        return true;
    }
    void Reposition(int width, int height) override
    {
        m_notes->layouts.emplace_back(width, height);
        Menu::Reposition(width, height);
    }
    void Render(int width, int height) override
    {
        ++m_notes->renders;
        Menu::Render(width, height);
    }

private:
    Notes* m_notes;
};

// Only what a menu must have.
class PlainMenu : public Menu
{
public:
    PlainMenu(int x, int y) : Menu(x, y, 3, "Helvetica", 20) {}
    bool MouseUp(int) override { return false; }
};

class MenuTest : public Stage
{
protected:
    MenuTest()
    {
        Menu::SetCurrent(new NotingMenu(&m_notes));
        RenderCurrent();
    }
    ~MenuTest() override { Menu::ClearCurrent(); }

    Menu& menu() { return *Menu::GetCurrent(); }

    platform::Point MiddleOf(int item)
    {
        Box const box = BoxOf(menu(), item);
        int const middle = box.x + box.width / 2;
        int const fromTop = box.y + box.height / 2;
        return {static_cast<float>(middle), static_cast<float>(kHeight - fromTop)};
    }

    // Where the pointer is after each of four steps.
    std::vector<platform::Point> placesOf(int step)
    {
        std::vector<platform::Point> places;
        for (int i = 0; i < 4; ++i)
        {
            platform::Point const place = menu().ClickPlace(step).value_or(platform::Point{});
            MoveTo(static_cast<int>(place.x), static_cast<int>(place.y));
            places.push_back(place);
        }
        return places;
    }

    Notes m_notes;
};

TEST_F(MenuTest, ItemsStandTwoFontSizesApartFromTheAnchor)
{
    PlainMenu const fresh(50, 60);
    for (int item = 0; item < 3; ++item)
    {
        EXPECT_EQ(BoxOf(fresh, item).x, 50);
        EXPECT_EQ(BoxOf(fresh, item).y, 60 + 40 * item);
        EXPECT_EQ(probe::TextOf(fresh, item), "");
        EXPECT_EQ(probe::FontOf(fresh.GetItem(item)), "Helvetica");
        EXPECT_EQ(probe::FontSizeOf(fresh.GetItem(item)), 20.0F);
        EXPECT_TRUE(IsNormal(fresh, item));
    }
    EXPECT_EQ(fresh.GetItemCount(), 3);
}

TEST_F(MenuTest, TheBaseReactsEverywhereAndIgnoresKeys)
{
    PlainMenu plain(0, 0);
    EXPECT_TRUE(plain.DoesItemReactToMouse(0));
    EXPECT_TRUE(plain.DoesItemReactToMouse(2));
    EXPECT_FALSE(plain.KeyDown(u'x'));
}

TEST_F(MenuTest, LayoutPutsTheAnchorIntoTheWindowsMiddle)
{
    for (int item = 0; item < 4; ++item)
    {
        EXPECT_EQ(BoxOf(menu(), item).x, kWidth / 2);
        EXPECT_EQ(BoxOf(menu(), item).y, kHeight / 2 + 40 * item);
    }
    Menu::RenderCurrent(1025, 769);
    EXPECT_EQ(BoxOf(menu(), 0).x, 512);
    EXPECT_EQ(BoxOf(menu(), 3).y, 384 + 120);
}

TEST_F(MenuTest, LayoutIsMadeAtTheFirstRenderAndWhenTheSizeChanges)
{
    EXPECT_THAT(m_notes.layouts, ElementsAre(Pair(800, 600)));
    RenderCurrent();
    EXPECT_EQ(m_notes.layouts.size(), 1U);
    Menu::RenderCurrent(801, 600);
    Menu::RenderCurrent(801, 600);
    Menu::RenderCurrent(801, 601);
    EXPECT_THAT(m_notes.layouts, ElementsAre(Pair(800, 600), Pair(801, 600), Pair(801, 601)));
    EXPECT_EQ(m_notes.renders, 5);
}

// What was drawn before it is on its way while the menu's texts are laid out.
TEST_F(MenuTest, DriverGetsTheSceneBeforeTheTextsOfANewMenuAndThenNoMore)
{
    Menu::SetCurrent(new PlainMenu(50, 60));
    auto const first = recording::during([] { RenderCurrent(); });
    EXPECT_EQ(recording::indexOf(first, "glFlush"), 0);
    EXPECT_GT(recording::indexOf(first, "glTexImage2D"), 0);
    EXPECT_EQ(recording::indexOf(recording::during([] { RenderCurrent(); }), "glFlush"), -1);
}

TEST_F(MenuTest, AnOffsetMovesTheColumnAndKeepsItsShape)
{
    PlainMenu plain(50, 60);
    plain.SetOffset(10, 20);
    EXPECT_EQ(BoxOf(plain, 0).x, 10);
    EXPECT_EQ(BoxOf(plain, 2).y, 100);
    plain.SetOffset(0, 0);
    EXPECT_EQ(BoxOf(plain, 2).y, 80);
}

TEST_F(MenuTest, ItemsAreDrawnInTheirOrder)
{
    auto const calls = recording::during([&] { RenderCurrent(); });
    int from = 0;
    for (int item = 0; item < 4; ++item)
    {
        double const y = 300 + 40 * item;
        from = recording::indexOf(calls, recording::call("glVertex2f", {400, y}), from);
        EXPECT_GE(from, 0) << "item " << item;
        from = std::max(from, 0);
    }
}

TEST_F(MenuTest, AllFourEdgesAreInside)
{
    Box const box = BoxOf(menu(), 0);
    int const top = kHeight - box.y; // from the bottom
    int const bottom = top - box.height;
    int const right = box.x + box.width;
    EXPECT_EQ(menu().PointToIOverlay(box.x, top), 0);
    EXPECT_EQ(menu().PointToIOverlay(right, top), 0);
    EXPECT_EQ(menu().PointToIOverlay(box.x, bottom), 0);
    EXPECT_EQ(menu().PointToIOverlay(right, bottom), 0);
    EXPECT_EQ(menu().PointToIOverlay(box.x - 1, top), -1);
    EXPECT_EQ(menu().PointToIOverlay(right + 1, top), -1);
    EXPECT_EQ(menu().PointToIOverlay(box.x, top + 1), -1);
    EXPECT_EQ(menu().PointToIOverlay(box.x, bottom - 1), -1);
}

TEST_F(MenuTest, EachItemIsHitAtItsPlace)
{
    for (int item = 0; item < 4; ++item)
    {
        Box const box = BoxOf(menu(), item);
        EXPECT_EQ(menu().PointToIOverlay(box.x + 3, kHeight - box.y - 3), item);
    }
}

TEST_F(MenuTest, WhereItemsOverlapTheLowestWins)
{
    Menu::SetCurrent(new NotingMenu(&m_notes, 3, 2)); // items of 2 points stand 4 pixels apart and are taller
    RenderCurrent();
    Box const first = BoxOf(menu(), 0);
    Box const second = BoxOf(menu(), 1);
    ASSERT_GT(first.y + first.height, second.y);
    EXPECT_EQ(menu().PointToIOverlay(first.x, kHeight - second.y), 0);
    EXPECT_EQ(menu().PointToIOverlay(first.x, kHeight - (first.y + first.height)), 0);
    EXPECT_EQ(menu().PointToIOverlay(first.x, kHeight - (first.y + first.height + 1)), 1);
}

TEST_F(MenuTest, NothingIsHighlightedUntilThePointerMoves)
{
    for (int item = 0; item < 4; ++item)
    {
        EXPECT_TRUE(IsNormal(menu(), item));
    }
}

TEST_F(MenuTest, TheItemUnderThePointerIsHighlightedWithASound)
{
    MoveOnto(0);
    EXPECT_TRUE(IsHighlighted(menu(), 0));
    EXPECT_TRUE(IsNormal(menu(), 1));
    EXPECT_TRUE(frozen::Plays("Rollover.AIFF"));
    EXPECT_THAT(m_notes.clicks, IsEmpty());
}

TEST_F(MenuTest, ADragHighlightsLikeAMove)
{
    Box const box = BoxOf(menu(), 0);
    probe::Send(events::MouseDragged(platform::EventType::LeftMouseDragged, static_cast<float>(box.x),
                                     static_cast<float>(kHeight - box.y), 1, 1));
    EXPECT_TRUE(IsHighlighted(menu(), 0));
}

TEST_F(MenuTest, AMoveWithinAnItemMakesNoSound)
{
    MoveOnto(0);
    frozen::Silence();
    Box const box = BoxOf(menu(), 0);
    MoveTo(box.x, kHeight - box.y);
    EXPECT_TRUE(IsHighlighted(menu(), 0));
    EXPECT_FALSE(frozen::Plays("Rollover.AIFF"));
}

TEST_F(MenuTest, AMoveToAnotherItemTakesTheHighlightAlong)
{
    MoveOnto(0);
    frozen::Silence();
    MoveOnto(1);
    EXPECT_TRUE(IsNormal(menu(), 0));
    EXPECT_TRUE(IsHighlighted(menu(), 1));
    EXPECT_TRUE(frozen::Plays("Rollover.AIFF"));
}

TEST_F(MenuTest, AMoveOffAllItemsIsSilent)
{
    MoveOnto(0);
    frozen::Silence();
    MoveTo(5, 5);
    EXPECT_TRUE(IsNormal(menu(), 0));
    EXPECT_FALSE(frozen::Plays("Rollover.AIFF"));
}

TEST_F(MenuTest, ACaptionShowsNoHighlightAndMakesNoSound)
{
    MoveOnto(2);
    EXPECT_TRUE(IsNormal(menu(), 2));
    EXPECT_FALSE(frozen::Plays("Rollover.AIFF"));
    MoveOnto(3);
    EXPECT_TRUE(IsHighlighted(menu(), 3));
    EXPECT_TRUE(frozen::Plays("Rollover.AIFF"));
    MoveOnto(2);
    EXPECT_TRUE(IsNormal(menu(), 3));
}

TEST_F(MenuTest, TheFirstStepLeadsToTheFirstItemOrToTheLast)
{
    EXPECT_EQ(menu().ClickPlace(0), std::nullopt);
    EXPECT_EQ(menu().ClickPlace(1), MiddleOf(0));
    EXPECT_EQ(menu().ClickPlace(-1), MiddleOf(3));
}

TEST_F(MenuTest, StepsGoFromItemToItemThatReactsAndRoundTheEnds)
{
    EXPECT_THAT(placesOf(1), ElementsAre(MiddleOf(0), MiddleOf(1), MiddleOf(3), MiddleOf(0)));
    EXPECT_THAT(placesOf(-1), ElementsAre(MiddleOf(3), MiddleOf(1), MiddleOf(0), MiddleOf(3)));
}

TEST_F(MenuTest, StepsLeaveEmptyItemsOut)
{
    menu().SetItem(1, "");
    RenderCurrent();
    EXPECT_THAT(placesOf(1), ElementsAre(MiddleOf(0), MiddleOf(3), MiddleOf(0), MiddleOf(3)));
}

TEST_F(MenuTest, WhatIsHighlightedIsThePlaceToClick)
{
    MoveOnto(1);
    EXPECT_EQ(menu().ClickPlace(0), MiddleOf(1));
    MoveOnto(2);
    EXPECT_EQ(menu().ClickPlace(0), std::nullopt) << "a caption";
    EXPECT_EQ(menu().ClickPlace(1), MiddleOf(3));
}

TEST_F(MenuTest, AMenuOfCaptionsHasNoPlaceToClick)
{
    for (int item = 0; item < 4; ++item)
    {
        menu().SetItem(item, "");
    }
    EXPECT_EQ(menu().ClickPlace(1), std::nullopt);
}

TEST_F(MenuTest, AClickThatDoesSomethingClicks)
{
    Click(0);
    EXPECT_THAT(m_notes.clicks, ElementsAre(0));
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuTest, TheRightButtonClicksToo)
{
    Box const box = BoxOf(menu(), 0);
    probe::Send(events::RightUp(static_cast<float>(box.x), static_cast<float>(kHeight - box.y)));
    EXPECT_THAT(m_notes.clicks, ElementsAre(0));
}

TEST_F(MenuTest, AClickWithoutEffectIsSilent)
{
    Click(3);
    EXPECT_THAT(m_notes.clicks, ElementsAre(3));
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuTest, AClickOnACaptionReachesTheMenu)
{
    Click(2);
    EXPECT_THAT(m_notes.clicks, ElementsAre(2));
}

TEST_F(MenuTest, AClickOnEmptySpaceIsMinusOne)
{
    probe::ReleaseAt(5, 5);
    EXPECT_THAT(m_notes.clicks, ElementsAre(-1));
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuTest, TheClickIsHeardOnceTheMenuIsGone)
{
    Click(1);
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
    EXPECT_EQ(m_notes.destroyed, 1);
    EXPECT_FALSE(m_notes.clickedWhenDestroyed);
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuTest, KeysReachTheMenuWhenTheyGoDownAndUp)
{
    probe::Type(u'a');
    probe::LetGo(u'a');
    probe::Type(u'\uF700');
    EXPECT_THAT(m_notes.keys, ElementsAre(u'a', u'a', 0xF700));
    EXPECT_THAT(m_notes.clicks, IsEmpty());
    EXPECT_FALSE(frozen::Plays("Click.AIFF")) << "the answer of KeyDown counts for nothing";
}

TEST_F(MenuTest, TheWheelIsIgnored)
{
    probe::Send(events::Wheel(0.0F, 1.0F));
    EXPECT_THAT(m_notes.clicks, IsEmpty());
    EXPECT_THAT(m_notes.keys, IsEmpty());
}

TEST_F(MenuTest, AnotherMenuDestroysTheCurrentOne)
{
    Notes later;
    Menu::SetCurrent(new NotingMenu(&later));
    EXPECT_EQ(m_notes.destroyed, 1);
    EXPECT_EQ(later.destroyed, 0);
    Menu::ClearCurrent();
    EXPECT_EQ(later.destroyed, 1);
    EXPECT_EQ(Menu::GetCurrent(), nullptr);
    Menu::ClearCurrent();
    EXPECT_EQ(later.destroyed, 1);
}

TEST_F(MenuTest, WithoutAMenuNothingIsDrawnOrHandled)
{
    Menu::ClearCurrent();
    EXPECT_THAT(recording::during([&] { RenderCurrent(); }), IsEmpty());
    MoveTo(400, 300);
    probe::Type(u'a');
    EXPECT_EQ(m_notes.keys.size(), 0U);
}

TEST_F(MenuTest, AMenusTexturesGoWithIt)
{
    ASSERT_EQ(recording::textures().size(), 4U);
    Menu::ClearCurrent();
    EXPECT_TRUE(recording::textures().empty());
}

TEST_F(MenuTest, SwitchedOffEffectsSilenceMenus)
{
    GameSound::SetVolume(false);
    MoveOnto(0);
    Click(0);
    EXPECT_FALSE(frozen::Plays("Rollover.AIFF"));
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
}

TEST_F(MenuTest, ALongFontNameIsCut)
{
    class LongName : public Menu
    {
    public:
        LongName() : Menu(0, 0, 0, "A font name of far more than thirty-two bytes", 20) {}
        bool MouseUp(int) override { return false; }
        std::string name() const { return GetFontName(); }
    };
    EXPECT_EQ(LongName().name(), "A font name of far more than th");
}

} // namespace
