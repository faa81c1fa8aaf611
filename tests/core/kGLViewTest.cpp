// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The view in windows of its own; the OpenGL calls are recorded, not drawn.
#include "core/kGLView.h"

#include "core/Game.h"
#include "platform/base/OpenGL.h"
#include "settings/GameSettings.h"
#include "support/CapturedLog.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/window/EventFactory.h"
#include "support/window/FakeApplication.h"
#include "ui/MenuGame.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <SDL.h>

namespace
{

using platform::RunLoop;
using platform::Window;
using recording::call;
using testing::ElementsAre;
using testing::IsSupersetOf;

constexpr platform::Rect kContent{{0.0F, 0.0F}, {640.0F, 480.0F}};
constexpr float kScreenWidth = 1280.0F; // the display that tests run on
constexpr float kScreenHeight = 720.0F;

// Counts the events that reach a menu.
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

TEST_F(GameStage, FramesNeedToBeEvenWhileARaceRuns)
{
    kGLView view;
    EXPECT_FALSE(view.needsEvenFrames());
    Game::pGame->SwitchToState(kStatePlaying);
    EXPECT_TRUE(view.needsEvenFrames());
    Game::pGame->SwitchToState(kStatePaused);
    EXPECT_FALSE(view.needsEvenFrames());
    Game::pGame->SwitchToState(kStatePlaying);
    EXPECT_TRUE(view.needsEvenFrames());
    Game::pGame->SwitchToState(kStateRaceOver);
    EXPECT_FALSE(view.needsEvenFrames());
}

TEST_F(GameStage, ThePlacesToClickAreThoseOfTheMenuThatIsShown)
{
    kGLView view;
    EXPECT_EQ(view.clickPlace(0), std::nullopt) << "nothing is highlighted";
    EXPECT_NE(view.clickPlace(1), std::nullopt);
    Game::pGame->SwitchToState(kStatePlaying);
    EXPECT_EQ(view.clickPlace(1), std::nullopt) << "there is a menu, but a race is shown";
    EXPECT_EQ(view.keyFor(platform::Control::ThrottleUp), u"w");
    Menu::ClearCurrent();
    EXPECT_EQ(view.clickPlace(1), std::nullopt);
    Game::pGame->PauseRace();
    EXPECT_NE(view.clickPlace(1), std::nullopt);
}

TEST_F(Stage, BeforeTheFirstFrameThereIsNoKeyAndNoPlace)
{
    kGLView view;
    Menu::SetCurrent(new MenuMain);
    EXPECT_EQ(view.keyFor(platform::Control::Pause), u"");
    EXPECT_EQ(view.clickPlace(1), std::nullopt);
    Menu::ClearCurrent();
}

// A view with its context, in a window as the application makes it.
class ViewInWindow : public Stage
{
protected:
    ViewInWindow() : m_view(std::make_unique<kGLView>())
    {
        m_hasContext = m_view->initWithFrame(kContent);
        m_window = Window::initWithContentSize(kContent.size);
        m_window->setContentView(m_view.get());
        m_window->makeKeyAndOrderFront();
    }
    ~ViewInWindow() override { m_window.reset(); } // before the view, whose context draws into it

    std::unique_ptr<kGLView> m_view;
    bool m_hasContext = false;
    std::unique_ptr<Window> m_window;
};

// With a game, whose menu counts the events.
class ViewWithGame : public ViewInWindow
{
protected:
    ViewWithGame()
    {
        Game::Init(640, 480);
        Menu::SetCurrent(new ListeningMenu(&m_events));
    }
    ~ViewWithGame() override
    {
        delete Game::pGame;
        Game::pGame = nullptr;
    }

    // Sends a key and a move to that window. How many of the two reach the game.
    int arriving(Window& window)
    {
        m_events = 0;
        window.sendEvent(events::KeyDown(u"w"));
        window.sendEvent(events::MouseMoved(10.0F, 10.0F));
        return m_events;
    }

private:
    int m_events = 0;
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
    EXPECT_THAT(recording::during([&] { m_view->reshape(); }),
                ElementsAre(call("glViewport", {0, 0, 640, 480}), call("glMatrixMode", {GL_PROJECTION}),
                            call("glLoadIdentity"),
                            call("gluPerspective", {45.0, 640.0 / 480.0, static_cast<double>(0.1F), 100.0}),
                            call("glMatrixMode", {GL_MODELVIEW}), call("glLoadIdentity")));
}

TEST_F(ViewInWindow, OnADenseDisplayTheViewportHasTheDisplaysPixels)
{
    recording::setDisplayScale(2);
    auto const calls = recording::during([&] { m_view->reshape(); });
    EXPECT_GE(recording::indexOf(calls, call("glViewport", {0, 0, 1280, 960})), 0);
}

TEST_F(ViewWithGame, EventsComeWhileTheViewHasTheKeyboard)
{
    EXPECT_EQ(arriving(*m_window), 0);
    ASSERT_TRUE(m_window->makeFirstResponder(m_view.get()));
    EXPECT_EQ(arriving(*m_window), 2);
    ASSERT_TRUE(m_window->makeFirstResponder(nullptr));
    EXPECT_EQ(arriving(*m_window), 0);
}

TEST_F(ViewInWindow, TheFrameTimerIsDueEveryMillisecondWhileTheViewLives)
{
    ASSERT_GT(RunLoop::secondsUntilNextTimer(), 1.0) << "no timer yet";
    CapturedLog log;
    m_view->awakeFromNib();
    EXPECT_THAT(log.lines(), ElementsAre("awakeFromNib", "end awakeFromNib"));
    EXPECT_LE(RunLoop::secondsUntilNextTimer(), 0.001);
    m_window.reset();
    m_view.reset();
    EXPECT_GT(RunLoop::secondsUntilNextTimer(), 1.0) << "the view takes its timer along";
}

TEST_F(ViewWithGame, FullScreenShowsTheViewInAWindowOfItsOwn)
{
    CapturedLog log;
    m_view->setFullScreen(true);
    EXPECT_THAT(log.lines(), ElementsAre("Window was created"));
    Window* const fullScreen = m_view->window();
    ASSERT_NE(fullScreen, nullptr);
    EXPECT_NE(fullScreen, m_window.get());
    EXPECT_EQ(arriving(*fullScreen), 2);
    EXPECT_EQ(arriving(*m_window), 0);
    EXPECT_EQ(m_view->frame().size.width, kScreenWidth);
    EXPECT_EQ(m_view->frame().size.height, kScreenHeight);
}

TEST_F(ViewWithGame, LeavingFullScreenBringsTheStartingWindowBack)
{
    for (int round = 0; round < 3; ++round)
    {
        m_view->setFullScreen(true);
        m_view->setFullScreen(false);
        EXPECT_EQ(m_view->window(), m_window.get());
        EXPECT_EQ(arriving(*m_window), 2);
        EXPECT_EQ(m_view->frame().size.width, 640.0F);
    }
}

// No display has a depth buffer of that size: until the next context is made it refuses every new window.
void RefuseWindows()
{
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 1024);
}

bool IsShown(Window const& window)
{
    return (SDL_GetWindowFlags(SDL_GetWindowFromID(window.identifier())) & SDL_WINDOW_SHOWN) != 0;
}

TEST_F(ViewWithGame, RefusedFullScreenLeavesTheWindowInPlaceAndVisible)
{
    m_window->orderOut(); // as at the start
    ASSERT_TRUE(m_window->makeFirstResponder(m_view.get()));
    RefuseWindows();
    CapturedLog log;
    m_view->setFullScreen(true);
    EXPECT_THAT(log.lines(), ElementsAre(testing::StartsWith("A window could not be made: ")));
    EXPECT_EQ(m_view->window(), m_window.get());
    EXPECT_TRUE(IsShown(*m_window));
    EXPECT_EQ(arriving(*m_window), 2);
    m_view->setFullScreen(false);
    EXPECT_EQ(m_view->window(), m_window.get());
    EXPECT_TRUE(IsShown(*m_window));
    EXPECT_EQ(arriving(*m_window), 2);
}

TEST_F(ViewInWindow, TogglingTwiceRestoresModeAndSetting)
{
    GameSettings::SetIntParam(setting::kFullscreen, 0);
    CapturedLog log;
    m_view->toggleFullScreen();
    EXPECT_EQ(m_view->frame().size.width, kScreenWidth);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kFullscreen), 1);
    m_view->toggleFullScreen();
    EXPECT_EQ(m_view->frame().size.width, 640.0F);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kFullscreen), 0);
    EXPECT_THAT(log.lines(), ElementsAre("-toggle fullscreen", "Window was created", "-toggle fullscreen"));
}

// A process has one first frame, which this test draws.
TEST_F(ViewInWindow, AWindowedStartPassesThroughFullScreenOnce)
{
    GameSettings::SetIntParam(setting::kFullscreen, 0);
    CapturedLog log;
    m_view->drawFrame();
    std::vector<std::string> const lines = log.lines();
    ASSERT_NE(Game::pGame, nullptr);
    EXPECT_THAT(lines, IsSupersetOf({"Window was created", "self apparently made first responder"}));
    EXPECT_EQ(m_view->window(), m_window.get());
    EXPECT_EQ(Game::pGame->GetState(), kStateMenu);
    EXPECT_GT(Game::pGame->GetUniverse()->GetRaceTime(), 0.0) << "the first frame ticks too";

    Game const* const game = Game::pGame;
    auto const calls = recording::during([&] { m_view->drawFrame(); });
    EXPECT_GE(recording::indexOf(calls, call("gluOrtho2D", {0, 640, 480, 0})), 0)
        << "the menu is drawn in the view's size";
    EXPECT_EQ(Game::pGame, game) << "only the first frame makes a game";
    delete Game::pGame;
    Game::pGame = nullptr;
}

} // namespace
