// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Window.h"

#include "platform/base/Log.h"
#include "platform/window/Display.h"
#include "platform/window/FullScreen.h"
#include "platform/window/GLSurface.h"
#include "platform/window/WindowIcon.h"
#include "platform/window/WindowList.h"

#include <SDL.h>

#include <algorithm>

namespace platform
{

struct Window::Handle
{
    std::shared_ptr<SDL_Window> window;
};

namespace
{

struct PixelSize
{
    int width = 1;
    int height = 1;
};

PixelSize DrawableSize(SDL_Window* window)
{
    PixelSize size;
    SDL_GL_GetDrawableSize(window, &size.width, &size.height);
    return size;
}

// Pixels of the drawable for each unit in which the desktop places and sizes windows.
float PixelsPerUnit(SDL_Window* window)
{
    int width = 0;
    SDL_GetWindowSize(window, &width, nullptr);
    int const pixels = DrawableSize(window).width;
    return width > 0 && pixels > 0 ? static_cast<float>(pixels) / static_cast<float>(width) : 1.0F;
}

// The screen that shows the window from the interface file, or the first.
int MainScreen()
{
    auto const* const surface = OpenGLContext::Surface::main();
    return surface != nullptr ? std::max(0, SDL_GetWindowDisplayIndex(surface->home.get())) : 0;
}

SDL_Rect ScreenBounds(int screen)
{
    SDL_Rect bounds{0, 0, 1, 1};
    SDL_GetDisplayBounds(screen, &bounds);
    return bounds;
}

// Whatever its size, the title bar's end of the window stays on the screen.
void PlaceInTheMiddle(SDL_Window* window)
{
    SDL_Rect const bounds = ScreenBounds(MainScreen());
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    SDL_SetWindowPosition(window, bounds.x + std::max(0, (bounds.w - width) / 2),
                          bounds.y + std::max(0, (bounds.h - height) / 2));
}

std::shared_ptr<SDL_Window> MakeWindow(SDL_Rect const& bounds, Uint32 flags)
{
    SDL_Window* const window =
        SDL_CreateWindow("Quarrow", bounds.x, bounds.y, bounds.w, bounds.h,
                         flags | SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN | SDL_WINDOW_ALLOW_HIGHDPI);
    return window != nullptr ? std::shared_ptr<SDL_Window>(window, SDL_DestroyWindow) : nullptr;
}

// The context's home while no window has it, else a new one.
std::shared_ptr<SDL_Window> TakeTitledWindow()
{
    auto const* const surface = OpenGLContext::Surface::main();
    bool const homeIsFree = surface != nullptr && surface->home.use_count() == 1;
    return homeIsFree ? surface->home : MakeWindow({0, 0, 1, 1}, SDL_WINDOW_RESIZABLE);
}

std::shared_ptr<SDL_Window> MakeTitledWindow(Size size)
{
    auto window = TakeTitledWindow();
    if (window)
    {
        float const scale = PixelsPerUnit(window.get());
        SDL_SetWindowSize(window.get(), std::max(1, static_cast<int>(size.width / scale)),
                          std::max(1, static_cast<int>(size.height / scale)));
        PlaceInTheMiddle(window.get());
    }
    return window;
}

std::shared_ptr<SDL_Window> MakeFullScreenWindow()
{
    auto window = MakeWindow(ScreenBounds(MainScreen()), FullScreenFlags());
    if (window)
    {
        AskForFullScreen(window.get());
    }
    return window;
}

} // namespace

Rect MainScreenFrame()
{
    if (!OpenDisplay())
    {
        return {};
    }
    auto const* const surface = OpenGLContext::Surface::main();
    float const scale = surface != nullptr ? PixelsPerUnit(surface->home.get()) : 1.0F;
    SDL_Rect const bounds = ScreenBounds(MainScreen());
    return {{0.0F, 0.0F}, {static_cast<float>(bounds.w) * scale, static_cast<float>(bounds.h) * scale}};
}

std::unique_ptr<Window> Window::initWithContentRect(Rect contentRect, WindowStyle style)
{
    if (!OpenDisplay())
    {
        return nullptr;
    }
    auto handle = std::make_unique<Handle>();
    handle->window =
        style == WindowStyle::Titled ? MakeTitledWindow(contentRect.size) : MakeFullScreenWindow();
    if (!handle->window)
    {
        LogFormat("A window could not be made: %s", SDL_GetError());
        return nullptr;
    }
    SetWindowIcon(handle->window.get());
    return std::unique_ptr<Window>(new Window(std::move(handle)));
}

Window::Window(std::unique_ptr<Handle> handle) : m_handle(std::move(handle))
{
    WindowList::add(this);
}

Window::~Window()
{
    WindowList::remove(this);
    SDL_HideWindow(m_handle->window.get());
    if (m_view != nullptr)
    {
        m_view->m_window = nullptr;
        m_view->openGLContext()->surface().leave(m_handle->window.get());
    }
}

void Window::setTitle(std::string const& title)
{
    SDL_SetWindowTitle(m_handle->window.get(), title.c_str());
}

void Window::setContentView(OpenGLView* view)
{
    if (m_view != nullptr && m_view != view)
    {
        m_view->m_window = nullptr;
        m_firstResponder = nullptr;
    }
    if (Window* const former = view->m_window; former != nullptr && former != this)
    {
        former->m_view = nullptr;
        former->m_firstResponder = nullptr;
    }
    m_view = view;
    view->m_window = this;
    view->openGLContext()->surface().drawInto(m_handle->window.get());
    drawableSizeChanged();
}

void Window::makeKeyAndOrderFront()
{
    SDL_ShowWindow(m_handle->window.get());
    SDL_RaiseWindow(m_handle->window.get());
    WindowList::setKey(this);
    drawableSizeChanged();
}

void Window::orderOut()
{
    SDL_HideWindow(m_handle->window.get());
}

bool Window::makeFirstResponder(OpenGLView* view)
{
    if (view == m_firstResponder)
    {
        return true;
    }
    if (m_firstResponder != nullptr && !m_firstResponder->resignFirstResponder())
    {
        return false;
    }
    m_firstResponder = nullptr;
    if (view == nullptr)
    {
        return true;
    }
    if (view != m_view || !view->acceptsFirstResponder() || !view->becomeFirstResponder())
    {
        return false;
    }
    m_firstResponder = view;
    return true;
}

void Window::sendEvent(Event const& event)
{
    if (m_firstResponder == nullptr)
    {
        return;
    }
    switch (event.type)
    {
    case EventType::KeyDown:
        m_firstResponder->keyDown(event);
        break;
    case EventType::MouseMoved:
        if (m_acceptsMouseMoved)
        {
            m_firstResponder->mouseMoved(event);
        }
        break;
    case EventType::LeftMouseUp:
        m_firstResponder->mouseUp(event);
        break;
    case EventType::ScrollWheel:
        m_firstResponder->scrollWheel(event);
        break;
    default: // a view has no use for drags, the right button and keys let go
        break;
    }
}

unsigned Window::identifier() const
{
    return SDL_GetWindowID(m_handle->window.get());
}

void Window::drawableSizeChanged()
{
    if (m_view == nullptr)
    {
        return;
    }
    // A minimised window may report nothing at all; a view always has something to draw into.
    PixelSize const size = DrawableSize(m_handle->window.get());
    m_view->setFrameSize(
        {static_cast<float>(std::max(1, size.width)), static_cast<float>(std::max(1, size.height))});
}

Point Window::pixelsFromWindow(int x, int y) const
{
    SDL_Window* const window = m_handle->window.get();
    float const scale = PixelsPerUnit(window);
    auto const height = static_cast<float>(DrawableSize(window).height);
    return {static_cast<float>(x) * scale, height - static_cast<float>(y) * scale};
}

} // namespace platform
