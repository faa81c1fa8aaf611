// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Window.h"

#include "platform/base/Log.h"
#include "platform/window/OpenGLView.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform
{

namespace
{

constexpr char const* kDataName = "Window"; // under this name an SDL window keeps its Window

// In the game's pixels. The last one each way, at the right and the top, may reach beyond the window.
Size SizeForGame(WindowPixels const& pixels)
{
    auto const scale = static_cast<float>(pixels.scale);
    return {std::ceil(pixels.size.width / scale), std::ceil(pixels.size.height / scale)};
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
    WindowPixels const pixels = PixelsOf(window);
    float const units = static_cast<float>(pixels.scale) / pixels.perUnit; // for each of the game's pixels
    int const width = std::max(1, static_cast<int>(content.width * units));
    int const height = std::max(1, static_cast<int>(content.height * units));
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

Window::Window(RawWindow window) : m_window(std::move(window)), m_pixels(PixelsOf(m_window.get()))
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
    m_pixels = PixelsOf(m_window.get());
    if (m_view == nullptr)
    {
        return;
    }
    Size const size = SizeForGame(m_pixels);
    Size const former = std::exchange(m_view->m_frame.size, size);
    bool const isSame = former.width == size.width && former.height == size.height;
    if (!std::exchange(m_view->m_shaped, true) || !isSame)
    {
        m_view->reshape();
    }
}

Point Window::pixelsFromWindow(int x, int y) const
{
    auto const scale = static_cast<float>(m_pixels.scale);
    float const right = static_cast<float>(x) * m_pixels.perUnit;
    float const up = m_pixels.size.height - static_cast<float>(y) * m_pixels.perUnit;
    return {std::floor(right / scale), std::ceil(up / scale)};
}

} // namespace platform
