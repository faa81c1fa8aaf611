// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Gamepads that SDL makes up, and what a view gets of them.
#include "platform/input/Gamepads.h"

#include "platform/window/TestView.h"
#include "support/window/VirtualPad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>

namespace
{

using platform::Control;
using platform::EventType;
using platform::Gamepads;
using platform::Point;
using testing::ElementsAre;
using testing::IsEmpty;

// 800 x 600, with keys and places that a test sets.
class PadView : public TestView
{
public:
    PadView() { m_frame.size = {800.0F, 600.0F}; }

    std::u16string keyFor(Control control) override { return keys[control]; }
    std::optional<Point> clickPlace(int step) override
    {
        auto const place = places.find(step);
        return place != places.end() ? std::optional(place->second) : std::nullopt;
    }
    void mouseUp(platform::Event const& event) override
    {
        TestView::mouseUp(event);
        keys.insert_or_assign(Control::ThrottleUp, keyAfterClick);
    }

    void race()
    {
        keys = {{Control::ThrottleUp, u"w"}, {Control::ThrottleDown, u"s"}, {Control::Pause, u"\x1B"}};
        places.clear();
    }

    std::map<Control, std::u16string> keys;
    std::map<int, Point> places;
    std::u16string keyAfterClick;
};

void HandleEvents(Gamepads& pads)
{
    Gamepads::poll();
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0)
    {
        pads.dispatch(event);
    }
}

class GamepadsTest : public testing::Test
{
protected:
    GamepadsTest()
    {
        m_pad.emplace();
        handleEvents();
    }

    void handleEvents() { HandleEvents(m_pads); }

    void press(SDL_GameControllerButton button, VirtualPad& pad)
    {
        pad.hold(button);
        handleEvents();
        pad.letGo(button);
        handleEvents();
    }
    void press(SDL_GameControllerButton button) { press(button, *m_pad); }

    void moveStick(float x, float y)
    {
        m_pad->moveStick(x, y);
        handleEvents();
    }

    std::vector<std::u16string> keysPressed() const
    {
        std::vector<std::u16string> keys;
        for (platform::Event const& event : m_view.events)
        {
            keys.push_back(event.charactersIgnoringModifiers);
        }
        return keys;
    }

    Point pointer() const { return m_view.events.back().locationInWindow; }

    void expectPointerAt(float x, float y) const
    {
        ASSERT_FALSE(m_view.events.empty());
        EXPECT_EQ(m_view.events.back().type, EventType::MouseMoved);
        EXPECT_NEAR(pointer().x, x, 0.05F);
        EXPECT_NEAR(pointer().y, y, 0.05F);
    }

    PadView m_view;
    Gamepads m_pads{m_view};
    std::optional<VirtualPad> m_pad;
};

TEST_F(GamepadsTest, AnUntouchedPadIsSilent)
{
    EXPECT_TRUE(m_pad->isOpen());
    EXPECT_THAT(m_view.told, IsEmpty());
}

TEST_F(GamepadsTest, FullDeflectionIsTheViewsEdge)
{
    moveStick(1.0F, 0.0F);
    expectPointerAt(800.0F, 300.0F);
    moveStick(0.0F, 1.0F);
    expectPointerAt(400.0F, 600.0F);
    moveStick(-1.0F, -1.0F);
    expectPointerAt(0.0F, 0.0F);
    moveStick(0.0F, 0.0F);
    expectPointerAt(400.0F, 300.0F);
}

TEST_F(GamepadsTest, DeflectionGrowsEvenlyFromTheRestToTheEdge)
{
    moveStick(0.1001F, 0.0F);
    expectPointerAt(400.0F, 300.0F);
    moveStick(0.55F, 0.0F);
    expectPointerAt(600.0F, 300.0F);
    moveStick(0.0F, -0.55F);
    expectPointerAt(400.0F, 150.0F);
    moveStick(0.33F, 0.44F); // a length of 0.55
    expectPointerAt(520.0F, 420.0F);
}

TEST_F(GamepadsTest, TremblingAtRestLeavesThePointerAlone)
{
    moveStick(0.06F, -0.07F);
    EXPECT_THAT(m_view.told, IsEmpty());
    moveStick(0.5F, 0.5F);
    moveStick(-0.03F, 0.02F);
    expectPointerAt(400.0F, 300.0F);
    m_view.told.clear();
    moveStick(0.04F, 0.02F);
    EXPECT_THAT(m_view.told, IsEmpty());
}

TEST_F(GamepadsTest, OtherSticksAndButtonsDoNothing)
{
    m_view.race();
    press(SDL_CONTROLLER_BUTTON_B);
    press(SDL_CONTROLLER_BUTTON_DPAD_LEFT);
    press(SDL_CONTROLLER_BUTTON_BACK);
    EXPECT_THAT(m_view.told, IsEmpty());
}

TEST_F(GamepadsTest, ShouldersAndDPadPressTheThrottleKeys)
{
    m_view.race();
    m_view.keys[Control::ThrottleUp] = u"\uF700";
    press(SDL_CONTROLLER_BUTTON_RIGHTSHOULDER);
    press(SDL_CONTROLLER_BUTTON_LEFTSHOULDER);
    press(SDL_CONTROLLER_BUTTON_DPAD_UP);
    press(SDL_CONTROLLER_BUTTON_DPAD_DOWN);
    EXPECT_THAT(m_view.told, ElementsAre("keyDown", "keyDown", "keyDown", "keyDown"));
    EXPECT_THAT(keysPressed(), ElementsAre(u"\uF700", u"s", u"\uF700", u"s"));
}

TEST_F(GamepadsTest, WhereAControlHasNoKeyItsButtonDoesNothing)
{
    press(SDL_CONTROLLER_BUTTON_RIGHTSHOULDER);
    press(SDL_CONTROLLER_BUTTON_DPAD_DOWN);
    press(SDL_CONTROLLER_BUTTON_START);
    EXPECT_THAT(m_view.told, IsEmpty());
}

TEST_F(GamepadsTest, InMenusTheDPadMovesThePointerAndAClicks)
{
    m_view.places = {{-1, {410.0F, 280.0F}}, {0, {410.0F, 240.0F}}, {1, {410.0F, 200.0F}}};
    press(SDL_CONTROLLER_BUTTON_DPAD_UP);
    expectPointerAt(410.0F, 280.0F);
    press(SDL_CONTROLLER_BUTTON_DPAD_DOWN);
    expectPointerAt(410.0F, 200.0F);
    press(SDL_CONTROLLER_BUTTON_A);
    EXPECT_THAT(m_view.told, ElementsAre("mouseMoved", "mouseMoved", "mouseUp"));
    EXPECT_EQ(m_view.events.back().type, EventType::LeftMouseUp);
    EXPECT_EQ(pointer(), (Point{410.0F, 240.0F}));
}

TEST_F(GamepadsTest, AClicksNothingWhereNothingIsHighlighted)
{
    m_view.places = {{1, {410.0F, 200.0F}}};
    press(SDL_CONTROLLER_BUTTON_A);
    EXPECT_THAT(m_view.told, IsEmpty());
}

TEST_F(GamepadsTest, StartPressesThePauseKey)
{
    m_view.keys = {{Control::Pause, u"p"}};
    press(SDL_CONTROLLER_BUTTON_START);
    EXPECT_THAT(m_view.told, ElementsAre("keyDown"));
    EXPECT_THAT(keysPressed(), ElementsAre(u"p"));
}

TEST_F(GamepadsTest, ARaceThatGoesOnIsSteeredByTheStickAsItStands)
{
    moveStick(1.0F, 0.0F);
    m_view.race(); // in which the key continues it
    m_view.told.clear();
    press(SDL_CONTROLLER_BUTTON_START);
    EXPECT_THAT(m_view.told, ElementsAre("keyDown", "mouseMoved"));
    expectPointerAt(800.0F, 300.0F);
}

TEST_F(GamepadsTest, ARaceThatAClickStartsIsSteeredByTheStickAsItStands)
{
    m_view.places = {{0, {410.0F, 240.0F}}};
    m_view.keyAfterClick = u"w";
    press(SDL_CONTROLLER_BUTTON_A);
    EXPECT_THAT(m_view.told, ElementsAre("mouseUp", "mouseMoved"));
    expectPointerAt(400.0F, 300.0F);
}

TEST_F(GamepadsTest, UnpluggingIsLeaving)
{
    m_pad.reset();
    handleEvents();
    EXPECT_THAT(m_view.told, ElementsAre("playerDidLeave"));
}

TEST_F(GamepadsTest, APadThatIsPluggedInAgainPlays)
{
    m_pad.reset();
    handleEvents();
    m_pad.emplace();
    handleEvents();
    m_view.told.clear();
    m_view.race();
    press(SDL_CONTROLLER_BUTTON_RIGHTSHOULDER);
    EXPECT_THAT(m_view.told, ElementsAre("keyDown"));
}

TEST_F(GamepadsTest, AllPadsPlay)
{
    VirtualPad second;
    handleEvents();
    m_view.race();
    press(SDL_CONTROLLER_BUTTON_RIGHTSHOULDER);
    press(SDL_CONTROLLER_BUTTON_LEFTSHOULDER, second);
    EXPECT_THAT(keysPressed(), ElementsAre(u"w", u"s"));
}

// It would poll each pad every millisecond.
TEST_F(GamepadsTest, WaitingForAnEventDoesNotLookAtThePads)
{
    m_pad->hold(SDL_CONTROLLER_BUTTON_A);
    EXPECT_EQ(SDL_WaitEventTimeout(nullptr, 20), 0);
    Gamepads::poll();
    EXPECT_EQ(SDL_WaitEventTimeout(nullptr, 20), 1);
}

TEST(GamepadsLifeTest, APadThatIsThereAtTheStartPlays)
{
    VirtualPad pad;
    PadView view;
    view.race();
    Gamepads pads(view);
    HandleEvents(pads);
    pad.hold(SDL_CONTROLLER_BUTTON_LEFTSHOULDER);
    HandleEvents(pads);
    EXPECT_THAT(view.told, ElementsAre("keyDown"));
}

TEST(GamepadsLifeTest, PadsAreForgottenAtTheEnd)
{
    TestView view;
    ASSERT_EQ(SDL_WasInit(SDL_INIT_GAMECONTROLLER), 0U);
    {
        Gamepads const pads(view);
        EXPECT_NE(SDL_WasInit(SDL_INIT_GAMECONTROLLER), 0U);
    }
    EXPECT_EQ(SDL_WasInit(SDL_INIT_GAMECONTROLLER | SDL_INIT_JOYSTICK), 0U);
}

} // namespace
