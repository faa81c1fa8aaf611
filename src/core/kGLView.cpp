// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/kGLView.h"

#include "core/Game.h"
#include "core/GameEvent.h"
#include "core/GameEventNSEvent.h"
#include "platform/base/Log.h"
#include "platform/base/OpenGL.h"
#include "platform/window/Application.h"
#include "settings/GameSettings.h"
#include "world/view/Scene.h"

#include <algorithm>

namespace
{

using platform::Log;

// Far below any display's frame time: the game runs as fast as run loop and display let it.
constexpr double kFrameInterval = 0.001; // seconds

bool fFirstFrameDone = false;

void Forward(platform::Event const& event)
{
    if (Game::pGame == nullptr)
    {
        return;
    }
    GameEvent const gameEvent(new GameEventNSEvent(event));
    Game::pGame->HandleEvent(&gameEvent);
}

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
    constexpr unsigned kAttributes[] = {platform::kPixelFormatDoubleBuffer,
                                        platform::kPixelFormatAccelerated,
                                        platform::kPixelFormatColorSize,
                                        32,
                                        platform::kPixelFormatDepthSize,
                                        32,
                                        0};
    auto const format = platform::PixelFormat::initWithAttributes(kAttributes);
    if (!format)
    {
        Log("Invalid format... terminating.");
        return false;
    }
    Scene::DecodePicturesAhead();
    if (!initWithPixelFormat(frame, *format))
    {
        Log("Self not created... terminating.");
        return false;
    }
    openGLContext()->makeCurrentContext();
    Log("Set current context...");
    return true;
}

void kGLView::awakeFromNib()
{
    Log("awakeFromNib");
    nstime = platform::Timer::scheduledTimer(kFrameInterval, [this] { drawFrame(); });
    // Frames go on while a menu is tracked or a modal panel is up.
    platform::RunLoop::current().addTimer(nstime, platform::RunLoop::Mode::EventTracking);
    platform::RunLoop::current().addTimer(nstime, platform::RunLoop::Mode::ModalPanel);
    Log("end awakeFromNib");
}

void kGLView::drawFrame()
{
    if (!fFirstFrameDone)
    {
        FirstFrame();
    }
    Game::pGame->Tick();
    Game::pGame->Render(PixelsWide(), PixelsHigh());
    openGLContext()->flushBuffer();
}

void kGLView::FirstFrame()
{
    GameSettings::Initialize();
    FullScreenOn = GameSettings::GetIntParam("Fullscreen") != 0;
    if (FullScreenOn)
    {
        setFullScreen(true);
    }
    else
    {
        // Through full screen once and back, deliberately.
        setFullScreen(true);
        setFullScreen(false);
    }
    platform::Window* const keyWindow = platform::Application::shared()->keyWindow();
    bool const accepted = keyWindow->makeFirstResponder(this);
    Log(accepted ? "self apparently made first responder" : "self is not first responder");

    Game::Init(PixelsWide(), PixelsHigh());
    fFirstFrameDone = true;
}

void kGLView::reshape()
{
    glViewport(0, 0, PixelsWide(), PixelsHigh());
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, static_cast<double>(PixelsWide()) / PixelsHigh(), static_cast<double>(0.1F), 100.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

int kGLView::PixelsWide() const
{
    return std::max(1, static_cast<int>(frame().size.width));
}

int kGLView::PixelsHigh() const
{
    return std::max(1, static_cast<int>(frame().size.height));
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
        StartingWindow = platform::Application::shared()->keyWindow();
    }
    auto window =
        platform::Window::initWithContentRect(platform::MainScreenFrame(), platform::WindowStyle::Borderless);
    if (!window)
    {
        return;
    }
    FullScreenWindow = std::move(window);
    Log("Window was created");
    FullScreenWindow->setTitle("myWindow");
    FullScreenWindow->setContentView(this);
    FullScreenWindow->makeKeyAndOrderFront();
    FullScreenWindow->makeFirstResponder(this);
    FullScreenOn = true;
    StartingWindow->setAcceptsMouseMovedEvents(false);
    FullScreenWindow->setAcceptsMouseMovedEvents(true);
    StartingWindow->orderOut();
}

void kGLView::LeaveFullScreen()
{
    if (StartingWindow == nullptr)
    {
        return;
    }
    StartingWindow->setContentView(this);
    StartingWindow->makeKeyAndOrderFront();
    StartingWindow->makeFirstResponder(this);
    StartingWindow->setAcceptsMouseMovedEvents(true);
    FullScreenOn = false;
    FullScreenWindow.reset();
}

void kGLView::toggleFullScreen()
{
    Log("-toggle fullscreen");
    bool const fullScreen = GameSettings::GetIntParam("Fullscreen") == 0;
    setFullScreen(fullScreen);
    GameSettings::SetIntParam("Fullscreen", fullScreen ? 1 : 0);
}

bool kGLView::acceptsFirstResponder()
{
    return true;
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

void kGLView::keyDown(platform::Event const& event)
{
    Forward(event);
}

void kGLView::mouseMoved(platform::Event const& event)
{
    Forward(event);
}

void kGLView::mouseUp(platform::Event const& event)
{
    Forward(event);
}

void kGLView::scrollWheel(platform::Event const& event)
{
    Forward(event);
}
