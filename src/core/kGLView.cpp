// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/kGLView.h"

#include "core/Game.h"
#include "core/GameEvent.h"
#include "platform/base/Log.h"
#include "platform/base/OpenGL.h"
#include "platform/window/Display.h"
#include "platform/window/GLContext.h"
#include "settings/GameSettings.h"
#include "ui/Menu.h"
#include "world/view/Scene.h"

namespace
{

using platform::Log;

// Far below any display's frame time: the game runs as fast as the run loop and the display let it.
constexpr double kFrameInterval = 0.001; // seconds

bool fFirstFrameDone = false;

} // namespace

kGLView::~kGLView()
{
    if (nstime)
    {
        nstime->invalidate();
    }
}

bool kGLView::initWithFrame(platform::Rect frame)
{
    if (!platform::OpenDisplay())
    {
        Log("Invalid format... terminating.");
        return false;
    }
    Scene::DecodePicturesAhead();
    if (!initWithPixelFormat(frame, {.colorSize = 32, .depthSize = 32}))
    {
        Log("Self not created... terminating.");
        return false;
    }
    Log("Set current context...");
    return true;
}

void kGLView::awakeFromNib()
{
    Log("awakeFromNib");
    nstime = platform::Timer::scheduledTimer(kFrameInterval, [this] { drawFrame(); });
    Log("end awakeFromNib");
}

void kGLView::drawFrame()
{
    if (!fFirstFrameDone)
    {
        FirstFrame();
    }
    Game::pGame->Tick();
    if (window()->isMiniaturized())
    {
        return;
    }
    Game::pGame->Render(PixelsWide(), PixelsHigh());
    openGLContext()->flushBuffer();
}

// A windowed start passes through full screen once.
void kGLView::FirstFrame()
{
    GameSettings::Initialize();
    setFullScreen(true);
    if (GameSettings::GetIntParam(setting::kFullscreen) == 0)
    {
        setFullScreen(false);
    }
    bool const accepted = window()->makeFirstResponder(this);
    Log(accepted ? "self apparently made first responder" : "self is not first responder");

    Game::Init(PixelsWide(), PixelsHigh());
    fFirstFrameDone = true;
}

void kGLView::reshape()
{
    int const scale = platform::DisplayScale();
    glViewport(0, 0, PixelsWide() * scale, PixelsHigh() * scale);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, static_cast<double>(PixelsWide()) / PixelsHigh(), static_cast<double>(0.1F), 100.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void kGLView::setFullScreen(bool fullScreen)
{
    if (fullScreen)
    {
        EnterFullScreen();
    }
    else
    {
        LeaveFullScreen();
    }
}

void kGLView::EnterFullScreen()
{
    if (!FullScreenWindow)
    {
        StartingWindow = window();
    }
    auto fullScreen = platform::Window::initOverMainScreen();
    if (!fullScreen || !fullScreen->setContentView(this))
    {
        window()->makeKeyAndOrderFront(); // at the start it is still hidden
        return;
    }
    Log("Window was created");
    fullScreen->setTitle("myWindow");
    fullScreen->makeKeyAndOrderFront();
    fullScreen->makeFirstResponder(this);
    StartingWindow->setAcceptsMouseMovedEvents(false);
    fullScreen->setAcceptsMouseMovedEvents(true);
    StartingWindow->orderOut();
    FullScreenWindow = std::move(fullScreen);
}

void kGLView::LeaveFullScreen()
{
    if (StartingWindow == nullptr || !StartingWindow->setContentView(this))
    {
        return;
    }
    StartingWindow->makeKeyAndOrderFront();
    StartingWindow->makeFirstResponder(this);
    StartingWindow->setAcceptsMouseMovedEvents(true);
    FullScreenWindow.reset();
}

void kGLView::toggleFullScreen()
{
    Log("-toggle fullscreen");
    bool const fullScreen = GameSettings::GetIntParam(setting::kFullscreen) == 0;
    setFullScreen(fullScreen);
    GameSettings::SetIntParam(setting::kFullscreen, fullScreen ? 1 : 0);
}

bool kGLView::wantsKey(platform::Event const& key)
{
    return Game::pGame != nullptr && Game::pGame->WantsKey(GameEvent(new GameEventNSEvent(key)));
}

bool kGLView::needsEvenFrames()
{
    return Game::pGame != nullptr && Game::pGame->GetState() == kStatePlaying;
}

void kGLView::playerDidLeave()
{
    if (Game::pGame != nullptr)
    {
        Game::pGame->PauseRace();
    }
}

std::u16string kGLView::keyFor(platform::Control control)
{
    return Game::pGame != nullptr ? Game::pGame->KeyFor(control) : std::u16string();
}

// A race that was continued by a key has its menu still, which is not shown.
std::optional<platform::Point> kGLView::clickPlace(int step)
{
    bool const isMenuShown = Game::pGame != nullptr && Game::pGame->GetState() != kStatePlaying;
    Menu const* const menu = isMenuShown ? Menu::GetCurrent() : nullptr;
    return menu != nullptr ? menu->ClickPlace(step) : std::nullopt;
}

bool kGLView::becomeFirstResponder()
{
    window()->setAcceptsMouseMovedEvents(true);
    return true;
}

bool kGLView::resignFirstResponder()
{
    window()->setAcceptsMouseMovedEvents(false);
    return true;
}

void kGLView::Forward(platform::Event const& event)
{
    if (Game::pGame == nullptr)
    {
        return; // an event from before the first frame
    }
    GameEvent const gameEvent(new GameEventNSEvent(event));
    Game::pGame->HandleEvent(&gameEvent);
}
