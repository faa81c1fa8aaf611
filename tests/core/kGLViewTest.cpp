// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The view in windows of its own; the OpenGL calls are recorded, not drawn.
#include "core/kGLView.h"

#include "core/Game.h"
#include "platform/base/OpenGL.h"
#include "settings/GameSettings.h"
#include "support/CapturedLog.h"
#include "support/EventFactory.h"
#include "support/FakeApplication.h"
#include "support/MenuProbe.h"
#include "support/RecordingGL.h"
#include "support/Stage.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using platform::RunLoop;
using platform::Window;
using recording::call;
using testing::ElementsAre;
using testing::IsSupersetOf;

constexpr platform::Rect kContent{{0.0F, 0.0F}, {640.0F, 480.0F}};

// Notes what reaches a menu.
class ListeningMenu : public Menu
{
public:
    explicit ListeningMenu(int* events) : Menu(0, 0, 1, "Helvetica", 20), m_events(events) {}
    bool MouseUp(int) override { return false; }
    void HandleEvent(GameEvent const*) override { ++*m_events; }

private:
    int* m_events;
};

void SendOneOfEach(kGLView& view)
{
    view.keyDown(events::KeyDown(u"w"));
    view.mouseMoved(events::MouseMoved(10.0F, 10.0F));
    view.mouseUp(events::LeftUp(10.0F, 10.0F));
    view.scrollWheel(events::Wheel(0.0F, 1.0F));
}

TEST_F(Stage, EventsBeforeTheFirstFrameAreDropped)
{
    int events = 0;
    Menu::SetCurrent(new ListeningMenu(&events));
    kGLView view;
    ASSERT_EQ(Game::pGame, nullptr);
    SendOneOfEach(view);
    EXPECT_EQ(events, 0);
}

TEST_F(GameStage, AllFourKindsOfEventsReachTheGame)
{
    int events = 0;
    Menu::SetCurrent(new ListeningMenu(&events));
    kGLView view;
    SendOneOfEach(view);
    EXPECT_EQ(events, 4);
}

TEST_F(Stage, TheViewTakesTheKeyboard)
{
    kGLView view;
    EXPECT_TRUE(view.acceptsFirstResponder());
}

// A view with its context, in the window that the interface file would have made.
class ViewInWindow : public Stage
{
protected:
    ViewInWindow() : m_view(std::make_unique<kGLView>())
    {
        m_hasContext = m_view->initWithFrame(kContent);
        m_window = Window::initWithContentRect(kContent, platform::WindowStyle::Titled);
        m_window->setContentView(m_view.get());
        m_window->makeKeyAndOrderFront();
    }
    ~ViewInWindow() override { m_window.reset(); } // before the view, whose context draws into it

    FakeApplication m_application;
    std::unique_ptr<kGLView> m_view;
    bool m_hasContext = false;
    std::unique_ptr<Window> m_window;
};

TEST_F(Stage, TheContextIsMadeCurrentAndLogged)
{
    kGLView view;
    CapturedLog log;
    EXPECT_TRUE(view.initWithFrame(kContent));
    EXPECT_THAT(log.lines(), ElementsAre("Set current context..."));
    EXPECT_NE(view.openGLContext(), nullptr);
    EXPECT_EQ(view.frame().size.width, 640.0F);
    EXPECT_EQ(view.frame().size.height, 480.0F);
}

TEST_F(ViewInWindow, ReshapeSetsViewportAndProjection)
{
    ASSERT_TRUE(m_hasContext);
    recording::start();
    m_view->reshape();
    EXPECT_THAT(recording::stop(),
                ElementsAre(call("glViewport", {0, 0, 640, 480}), call("glMatrixMode", {GL_PROJECTION}),
                            call("glLoadIdentity"),
                            call("gluPerspective", {45.0, 640.0 / 480.0, static_cast<double>(0.1F), 100.0}),
                            call("glMatrixMode", {GL_MODELVIEW}), call("glLoadIdentity")));
}

TEST_F(Stage, ViewWithoutAnAreaKeepsAProportion)
{
    for (platform::Size const size :
         {platform::Size{640.0F, 0.0F}, {0.0F, 480.0F}, {0.0F, 0.0F}, {1.0F, 1.0F}})
    {
        kGLView view;
        view.initWithFrame({{}, size});
        double const width = std::max(1.0F, size.width);
        double const height = std::max(1.0F, size.height);
        recording::start();
        view.reshape();
        EXPECT_THAT(
            recording::stop(),
            IsSupersetOf({call("glViewport", {0, 0, width, height}),
                          call("gluPerspective", {45.0, width / height, static_cast<double>(0.1F), 100.0})}));
    }
}

TEST_F(ViewInWindow, MouseMovesComeWhileTheViewHasTheKeyboard)
{
    ASSERT_TRUE(m_window->makeFirstResponder(m_view.get()));
    EXPECT_TRUE(m_window->acceptsMouseMovedEvents());
    ASSERT_TRUE(m_window->makeFirstResponder(nullptr));
    EXPECT_FALSE(m_window->acceptsMouseMovedEvents());
}

TEST_F(ViewInWindow, TheFrameTimerRunsInAllModes)
{
    for (RunLoop::Mode const mode :
         {RunLoop::Mode::Default, RunLoop::Mode::EventTracking, RunLoop::Mode::ModalPanel})
    {
        ASSERT_GT(RunLoop::current().secondsUntilNextTimer(mode), 1.0) << "no timer yet";
    }
    CapturedLog log;
    m_view->awakeFromNib();
    EXPECT_THAT(log.lines(), ElementsAre("awakeFromNib", "end awakeFromNib"));
    for (RunLoop::Mode const mode :
         {RunLoop::Mode::Default, RunLoop::Mode::EventTracking, RunLoop::Mode::ModalPanel})
    {
        EXPECT_LE(RunLoop::current().secondsUntilNextTimer(mode), 0.001);
    }
    m_window.reset();
    m_view.reset();
    EXPECT_GT(RunLoop::current().secondsUntilNextTimer(RunLoop::Mode::Default), 1.0)
        << "the view takes its timer along";
}

TEST_F(ViewInWindow, FullScreenShowsTheViewInAWindowOfItsOwn)
{
    CapturedLog log;
    m_view->setFullScreen(true);
    EXPECT_THAT(log.lines(), ElementsAre("Window was created"));
    EXPECT_TRUE(m_view->isFullScreen());
    Window* const fullScreen = m_view->window();
    ASSERT_NE(fullScreen, nullptr);
    EXPECT_NE(fullScreen, m_window.get());
    EXPECT_EQ(m_application.keyWindow(), fullScreen);
    EXPECT_EQ(fullScreen->firstResponder(), m_view.get());
    EXPECT_TRUE(fullScreen->acceptsMouseMovedEvents());
    EXPECT_FALSE(m_window->acceptsMouseMovedEvents());
    EXPECT_EQ(m_view->frame().size.width, platform::MainScreenFrame().size.width);
    EXPECT_EQ(m_view->frame().size.height, platform::MainScreenFrame().size.height);
}

TEST_F(ViewInWindow, LeavingFullScreenBringsTheStartingWindowBack)
{
    for (int round = 0; round < 3; ++round)
    {
        m_view->setFullScreen(true);
        m_view->setFullScreen(false);
        EXPECT_FALSE(m_view->isFullScreen());
        EXPECT_EQ(m_view->window(), m_window.get());
        EXPECT_EQ(m_application.keyWindow(), m_window.get());
        EXPECT_EQ(m_window->firstResponder(), m_view.get());
        EXPECT_TRUE(m_window->acceptsMouseMovedEvents());
        EXPECT_EQ(m_view->frame().size.width, 640.0F);
    }
}

TEST_F(ViewInWindow, TogglingTwiceRestoresModeAndSetting)
{
    GameSettings::SetIntParam(setting::kFullscreen, 0);
    CapturedLog log;
    m_view->toggleFullScreen();
    EXPECT_TRUE(m_view->isFullScreen());
    EXPECT_EQ(GameSettings::GetIntParam(setting::kFullscreen), 1);
    m_view->toggleFullScreen();
    EXPECT_FALSE(m_view->isFullScreen());
    EXPECT_EQ(GameSettings::GetIntParam(setting::kFullscreen), 0);
    EXPECT_THAT(log.lines(), ElementsAre("-toggle fullscreen", "Window was created", "-toggle fullscreen"));
}

// The one first frame that a process has.
TEST_F(ViewInWindow, AWindowedStartPassesThroughFullScreenOnce)
{
    GameSettings::SetIntParam(setting::kFullscreen, 0);
    CapturedLog log;
    m_view->drawFrame();
    std::vector<std::string> const lines = log.lines();
    ASSERT_NE(Game::pGame, nullptr);
    EXPECT_THAT(lines, IsSupersetOf({"Window was created", "self apparently made first responder"}));
    EXPECT_FALSE(m_view->isFullScreen());
    EXPECT_EQ(m_view->window(), m_window.get());
    EXPECT_EQ(m_window->firstResponder(), m_view.get());
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
    EXPECT_GT(Game::pGame->GetUniverse()->GetRaceTime(), 0.0) << "the first frame ticks too";

    Game const* const game = Game::pGame;
    recording::start();
    m_view->drawFrame();
    EXPECT_GE(recording::indexOf(recording::stop(), call("gluOrtho2D", {0, 640, 480, 0})), 0)
        << "the menu is drawn in the view's size";
    EXPECT_EQ(Game::pGame, game) << "only the first frame makes a game";

    kGLView squeezed;
    ASSERT_TRUE(squeezed.initWithFrame({{}, {640.0F, 0.0F}}));
    recording::start();
    squeezed.drawFrame();
    EXPECT_GE(recording::indexOf(recording::stop(), call("glViewport", {0, 0, 640, 1})), 0)
        << "a view without height is drawn as if it had a line";
    delete Game::pGame;
    Game::pGame = nullptr;
}

} // namespace
