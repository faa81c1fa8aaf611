// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Window.h"

#include "platform/base/Log.h"
#include "platform/window/OpenGLView.h"

#include <SDL.h>

#include <algorithm>
#include <utility>

namespace platform
{

namespace
{

constexpr char const* kDataName = "Window"; // under this name an SDL window keeps its Window

// A minimised window may report a size of 0; a view has at least one pixel.
Size DrawableSize(SDL_Window* window)
{
    int width = 0;
    int height = 0;
    SDL_GL_GetDrawableSize(window, &width, &height);
    return {static_cast<float>(std::max(1, width)), static_cast<float>(std::max(1, height))};
}

// Pixels of the drawable for each unit in which the desktop places and sizes windows.
float PixelsPerUnit(SDL_Window* window)
{
    int width = 0;
    SDL_GetWindowSize(window, &width, nullptr);
    return width > 0 ? DrawableSize(window).width / static_cast<float>(width) : 1.0F;
}

// Of the screen that shows the view now, or of the first.
SDL_Rect MainScreenBounds()
{
    SDL_Rect bounds{0, 0, 1, 1};
    SDL_GetDisplayBounds(std::max(0, SDL_GetWindowDisplayIndex(SDL_GL_GetCurrentWindow())), &bounds);
    return bounds;
}

// A window larger than the screen starts at the screen's top left, so that its title bar can be reached.
void SizeAndPlaceInTheMiddle(SDL_Window* window, Size content)
{
    SDL_Rect const screen = MainScreenBounds();
    float const scale = PixelsPerUnit(window);
    int const width = std::max(1, static_cast<int>(content.width / scale));
    int const height = std::max(1, static_cast<int>(content.height / scale));
    SDL_SetWindowSize(window, width, height);
    SDL_SetWindowPosition(window, screen.x + std::max(0, (screen.w - width) / 2),
                          screen.y + std::max(0, (screen.h - height) / 2));
}

} // namespace

std::unique_ptr<Window> Window::initWithContentSize(Size content)
{
    RawWindow window = MakeRawWindow({0, 0, 1, 1}, SDL_WINDOW_RESIZABLE);
    if (window)
    {
        SizeAndPlaceInTheMiddle(window.get(), content);
    }
    return wrap(std::move(window));
}

std::unique_ptr<Window> Window::initOverMainScreen()
{
    return wrap(MakeFullScreenRawWindow(MainScreenBounds()));
}

std::unique_ptr<Window> Window::wrap(RawWindow window)
{
    if (!window)
    {
        LogFormat("A window could not be made: %s", SDL_GetError());
        return nullptr;
    }
    return std::unique_ptr<Window>(new Window(std::move(window)));
}

Window::Window(RawWindow window) : m_window(std::move(window))
{
    SDL_SetWindowData(m_window.get(), kDataName, this);
}

Window::~Window()
{
    SDL_HideWindow(m_window.get());
    if (m_view != nullptr)
    {
        m_view->openGLContext()->leave(m_window.get());
        releaseView();
    }
}

Window* Window::withIdentifier(unsigned identifier)
{
    SDL_Window* const window = SDL_GetWindowFromID(identifier);
    return window != nullptr ? static_cast<Window*>(SDL_GetWindowData(window, kDataName)) : nullptr;
}

unsigned Window::identifier() const
{
    return SDL_GetWindowID(m_window.get());
}

void Window::setTitle(std::string const& title)
{
    SDL_SetWindowTitle(m_window.get(), title.c_str());
}

bool Window::setContentView(OpenGLView* view)
{
    if (!view->openGLContext()->drawInto(m_window.get()))
    {
        LogFormat("A window could not be drawn into: %s", SDL_GetError());
        return false;
    }
    if (view->m_window != nullptr && view->m_window != this)
    {
        view->m_window->releaseView();
    }
    m_view = view;
    view->m_window = this;
    drawableSizeChanged();
    return true;
}

void Window::releaseView()
{
    m_view->m_window = nullptr;
    m_view = nullptr;
    m_firstResponder = nullptr;
}

void Window::makeKeyAndOrderFront()
{
    SDL_ShowWindow(m_window.get());
    SDL_RaiseWindow(m_window.get());
    drawableSizeChanged();
}

void Window::orderOut()
{
    SDL_HideWindow(m_window.get());
}

bool Window::isMiniaturized() const
{
    return (SDL_GetWindowFlags(m_window.get()) & SDL_WINDOW_MINIMIZED) != 0;
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
    bool const accepted = view != nullptr && view->acceptsFirstResponder() && view->becomeFirstResponder();
    m_firstResponder = accepted ? view : nullptr;
    return m_firstResponder == view;
}

void Window::sendEvent(Event const& event)
{
    if (m_firstResponder == nullptr || (event.type == EventType::MouseMoved && !m_acceptsMouseMoved))
    {
        return;
    }
    switch (event.type)
    {
    case EventType::KeyDown:
        return m_firstResponder->keyDown(event);
    case EventType::MouseMoved:
        return m_firstResponder->mouseMoved(event);
    case EventType::LeftMouseUp:
        return m_firstResponder->mouseUp(event);
    case EventType::ScrollWheel:
        return m_firstResponder->scrollWheel(event);
    default: // a view gets no drags, right buttons and key releases
        return;
    }
}

void Window::drawableSizeChanged()
{
    if (m_view == nullptr)
    {
        return;
    }
    Size const size = DrawableSize(m_window.get());
    Size const former = std::exchange(m_view->m_frame.size, size);
    bool const isSame = former.width == size.width && former.height == size.height;
    if (!std::exchange(m_view->m_shaped, true) || !isSame)
    {
        m_view->reshape();
    }
}

Point Window::pixelsFromWindow(int x, int y) const
{
    float const scale = PixelsPerUnit(m_window.get());
    float const height = DrawableSize(m_window.get()).height;
    return {static_cast<float>(x) * scale, height - static_cast<float>(y) * scale};
}

} // namespace platform
