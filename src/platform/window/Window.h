// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Windows on the screen. One OpenGL context serves them all: a window shows the view that is its content
// view, and the context draws into the window that shows its view.
#pragma once

#include "platform/base/Geometry.h"
#include "platform/window/Event.h"

#include <memory>
#include <string>

union SDL_Event;
struct SDL_Window;

namespace platform
{

class OpenGLView;

// The size in pixels of the screen that a new full-screen window covers.
Rect MainScreenFrame();

enum class WindowStyle
{
    Titled,     // with the desktop's frame, resizable, closable
    Borderless, // over the whole screen, above panels and docks
};

class Window
{
public:
    // Null, with one log line, when the display refuses. Hidden until makeKeyAndOrderFront().
    static std::unique_ptr<Window> initWithContentRect(Rect contentRect, WindowStyle style);
    ~Window(); // the window closes; the view and its context stay
    Window(Window const&) = delete;
    Window& operator=(Window const&) = delete;

    void setTitle(std::string const& title);

    // Shows the view here from now on: its context draws into this window, its frame takes this window's
    // size.
    void setContentView(OpenGLView* view);
    OpenGLView* contentView() const { return m_view; }

    void makeKeyAndOrderFront();
    void orderOut(); // hides it

    // True when the view accepted. The view that loses the keyboard is asked to resign first.
    bool makeFirstResponder(OpenGLView* view);
    OpenGLView* firstResponder() const { return m_firstResponder; }

    // Plain moves of the pointer reach the view only while this is on; off at first.
    void setAcceptsMouseMovedEvents(bool accepts) { m_acceptsMouseMoved = accepts; }
    bool acceptsMouseMovedEvents() const { return m_acceptsMouseMoved; }

    // Hands a translated event to the first responder, by its type.
    void sendEvent(Event const& event);

    // For Application, which owns the event pump.
    unsigned identifier() const;
    void drawableSizeChanged();
    Point pixelsFromWindow(int x, int y) const; // bottom-left origin

private:
    struct Handle;
    explicit Window(std::unique_ptr<Handle> handle);

    std::unique_ptr<Handle> m_handle;
    OpenGLView* m_view = nullptr;
    OpenGLView* m_firstResponder = nullptr;
    bool m_acceptsMouseMoved = false;
};

} // namespace platform
