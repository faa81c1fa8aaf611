// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the application makes of keys, mouse, wheel and a resized window, with a view of the tests' own.
#include "platform/window/Application.h"
#include "platform/window/ScriptedView.h"
#include "platform/window/Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <SDL.h>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using ApplicationEventsTest = ApplicationTest;

constexpr char const* kNotPushed = "SDL 2 on top of SDL 3 garbles texts and wheels that a program pushes";

// Such a library counts its versions from 2.32.50 on.
bool IsOnTopOfSDL3()
{
    SDL_version linked;
    SDL_GetVersion(&linked);
    return SDL_VERSIONNUM(linked.major, linked.minor, linked.patch) >= SDL_VERSIONNUM(2, 32, 50);
}

TEST_F(ApplicationEventsTest, CtrlQEndsAndTheViewNeverSeesIt)
{
    bool wentOn = false;
    EXPECT_EQ(run({[](ScriptedView& view) { view.pressKey(SDLK_q, KMOD_LCTRL); },
                   [&](ScriptedView&) { wentOn = true; }}),
              0);
    EXPECT_FALSE(wentOn);
    EXPECT_THAT(record.events, IsEmpty());
}

TEST_F(ApplicationEventsTest, CommandsKeyIsFoundByItsPlaceInALayoutOfAnotherScript)
{
    bool wentOn = false;
    run({[](ScriptedView& view)
         {
             SDL_Event event{};
             event.type = SDL_KEYDOWN;
             event.key.keysym.sym = 0x439; // Cyrillic short i, on the key that is Q elsewhere
             event.key.keysym.scancode = SDL_SCANCODE_Q;
             event.key.keysym.mod = KMOD_LCTRL;
             view.push(event);
         },
         [&](ScriptedView&) { wentOn = true; }});
    EXPECT_FALSE(wentOn);
}

TEST_F(ApplicationEventsTest, HeldKeyOfACommandPerformsItOnce)
{
    run({[](ScriptedView& view)
         {
             view.pressKey(SDLK_F11);
             view.pressKey(SDLK_F11, KMOD_NONE, "", true);
         }});
    EXPECT_THAT(record.told, ElementsAre("become", "toggleFullScreen"));
}

TEST_F(ApplicationEventsTest, KeyThatTheViewWantsIsNoCommand)
{
    run({[](ScriptedView& view)
         {
             view.wanted = u"\uF70E";
             view.pressKey(SDLK_F11);
             view.pressKey(SDLK_F11, KMOD_NONE, "", true);
             view.pressKey(SDLK_RETURN, KMOD_LALT);
         },
         [](ScriptedView& view)
         {
             view.wanted = u"\r";
             view.pressKey(SDLK_F11);
             view.pressKey(SDLK_RETURN, KMOD_LALT);
         }});
    EXPECT_THAT(record.told, ElementsAre("become", "keyDown", "keyDown", "toggleFullScreen",
                                         "toggleFullScreen", "keyDown"));
    EXPECT_EQ(record.events[0].charactersIgnoringModifiers, u"\uF70E");
    EXPECT_EQ(record.events[2].charactersIgnoringModifiers, u"\r");
}

TEST_F(ApplicationEventsTest, CtrlQEndsEvenWhereTheViewWantsTheKey)
{
    bool wentOn = false;
    run({[](ScriptedView& view)
         {
             view.wanted = u"q";
             view.pressKey(SDLK_q, KMOD_LCTRL);
         },
         [&](ScriptedView&) { wentOn = true; }});
    EXPECT_FALSE(wentOn);
    EXPECT_THAT(record.events, IsEmpty());
}

TEST_F(ApplicationEventsTest, ReturnIsACommandOnlyWithAlt)
{
    run({[](ScriptedView& view)
         {
             view.pressKey(SDLK_RETURN);
             view.pressKey(SDLK_RETURN, KMOD_LALT);
             view.pressKey(SDLK_RETURN, KMOD_LALT | KMOD_LSHIFT);
         }});
    EXPECT_THAT(record.told, ElementsAre("become", "keyDown", "toggleFullScreen", "keyDown"));
    EXPECT_EQ(record.events[0].charactersIgnoringModifiers, u"\r");
}

TEST_F(ApplicationEventsTest, KeyCarriesTheTextThatFollowsIt)
{
    if (IsOnTopOfSDL3())
    {
        GTEST_SKIP() << kNotPushed;
    }
    run({[](ScriptedView& view)
         {
             view.pressKey(SDLK_1, KMOD_LSHIFT, "!");
             view.pressKey(SDLK_2);
             view.pressKey(SDLK_w, KMOD_NONE, "w", true);
         }});
    ASSERT_EQ(record.events.size(), 3U);
    EXPECT_EQ(record.events[0].charactersIgnoringModifiers, u"!");
    EXPECT_EQ(record.events[1].charactersIgnoringModifiers, u"2");
    EXPECT_EQ(record.events[2].charactersIgnoringModifiers, u"w");
}

TEST_F(ApplicationEventsTest, KeyForNoWindowGoesToTheKeyWindow)
{
    run({[](ScriptedView&)
         {
             SDL_Event event{};
             event.type = SDL_KEYDOWN;
             event.key.keysym.sym = SDLK_ESCAPE;
             SDL_PushEvent(&event);
         }});
    ASSERT_EQ(record.events.size(), 1U);
    EXPECT_EQ(record.events[0].charactersIgnoringModifiers, u"\x1B");
}

SDL_Event Motion(int x, int y, int dx, int dy, Uint32 buttons = 0)
{
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = x;
    event.motion.y = y;
    event.motion.xrel = dx;
    event.motion.yrel = dy;
    event.motion.state = buttons;
    return event;
}

TEST_F(ApplicationEventsTest, PlainMoveTellsWhereThePointerIs)
{
    run({[](ScriptedView& view) { view.push(Motion(100, 68, 5, -7)); }});
    ASSERT_THAT(record.told, ElementsAre("become", "mouseMoved"));
    EXPECT_EQ(record.events[0].type, platform::EventType::MouseMoved);
    EXPECT_EQ(record.events[0].locationInWindow.x, 100.0F);
    EXPECT_EQ(record.events[0].locationInWindow.y, 700.0F); // 768 - 68
    EXPECT_EQ(record.events[0].mouseDeltaX, 5);
    EXPECT_EQ(record.events[0].mouseDeltaY, -7);
}

TEST_F(ApplicationEventsTest, MoveWithAButtonDownIsADragThatTheViewNeverSees)
{
    run({[](ScriptedView& view)
         {
             view.push(Motion(1, 1, 1, 1, SDL_BUTTON_LMASK));
             view.push(Motion(2, 2, 1, 1, SDL_BUTTON_RMASK));
             view.push(Motion(3, 3, 1, 1, SDL_BUTTON_MMASK));
         }});
    EXPECT_THAT(record.events, IsEmpty());
}

SDL_Event Release(Uint8 button)
{
    SDL_Event event{};
    event.type = SDL_MOUSEBUTTONUP;
    event.button.button = button;
    event.button.x = 10;
    event.button.y = 20;
    return event;
}

TEST_F(ApplicationEventsTest, OnlyTheLeftButtonsReleaseReachesTheView)
{
    run({[](ScriptedView& view)
         {
             view.push(Release(SDL_BUTTON_RIGHT));
             view.push(Release(SDL_BUTTON_MIDDLE));
             view.push(Release(SDL_BUTTON_LEFT));
         }});
    ASSERT_THAT(record.told, ElementsAre("become", "mouseUp"));
    EXPECT_EQ(record.events[0].locationInWindow.x, 10.0F);
    EXPECT_EQ(record.events[0].locationInWindow.y, 748.0F);
}

SDL_Event Wheel(int x, int y, SDL_MouseWheelDirection direction = SDL_MOUSEWHEEL_NORMAL)
{
    SDL_Event event{};
    event.type = SDL_MOUSEWHEEL;
    event.wheel.x = x;
    event.wheel.y = y;
    event.wheel.direction = static_cast<Uint32>(direction);
    return event;
}

TEST_F(ApplicationEventsTest, WheelTellsItsNotches)
{
    if (IsOnTopOfSDL3())
    {
        GTEST_SKIP() << kNotPushed;
    }
    run({[](ScriptedView& view)
         {
             view.push(Wheel(0, 2));
             view.push(Wheel(-1, 0));
             view.push(Wheel(0, 1, SDL_MOUSEWHEEL_FLIPPED));
             view.push(Wheel(0, 0)); // less than a notch
         }});
    ASSERT_EQ(record.events.size(), 3U);
    EXPECT_EQ(record.events[0].deltaY, 2.0F);
    EXPECT_EQ(record.events[1].deltaX, -1.0F);
    EXPECT_EQ(record.events[2].deltaY, -1.0F);
}

TEST_F(ApplicationEventsTest, ResizedWindowReshapesItsView)
{
    run({[](ScriptedView& view)
         { SDL_SetWindowSize(SDL_GetWindowFromID(view.window()->identifier()), 700, 400); },
         [](ScriptedView&) {}});
    ASSERT_FALSE(record.shapes.empty());
    EXPECT_EQ(record.shapes.back().width, 700.0F);
    EXPECT_EQ(record.shapes.back().height, 400.0F);
}

} // namespace
