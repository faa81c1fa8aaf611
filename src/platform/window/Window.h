// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Windows on the screen. A window shows the view that is its content view, and the view's OpenGL context
// draws into it.
#pragma once

#include "platform/base/Geometry.h"
#include "platform/input/Event.h"
#include "platform/window/Display.h"

#include <memory>
#include <string>

namespace platform
{

class OpenGLView;

class Window
{
public:
    // Both are hidden until makeKeyAndOrderFront(). Null, with one log line, when the display refuses.

    // With the desktop's frame, resizable, in the middle of the screen. content: the game's pixels.
    static std::unique_ptr<Window> initWithContentSize(Size content);

    // Borderless, over the whole of the screen that shows the view now, above panels and docks.
    static std::unique_ptr<Window> initOverMainScreen();

    ~Window(); // the window closes; the view and its context stay
    Window(Window const&) = delete;
    Window& operator=(Window const&) = delete;

    // The window with that identifier of SDL's; null when there is none.
    static Window* withIdentifier(unsigned identifier);
    unsigned identifier() const;

    void setTitle(std::string const& title);

    // Shows the view here from now on: its context draws into this window, its frame takes this window's
    // size. A window that showed it before shows nothing, and has no responder. False, with one log line,
    // when the driver refuses to draw here; the view then stays where it was.
    bool setContentView(OpenGLView* view);

    void makeKeyAndOrderFront();
    void orderOut(); // hides it

    // Display pixels for each of the game's, in both directions.
    int scale() const { return m_pixels.scale; }

    // Minimised by the player, or on a desktop that is not shown.
    bool isMiniaturized() const;

    // Gives the view the keyboard; null takes it from all. True when the view accepted. The view that loses
    // the keyboard is asked to resign first.
    bool makeFirstResponder(OpenGLView* view);

    // Plain moves of the pointer reach the view only while this is on; off at first.
    void setAcceptsMouseMovedEvents(bool accepts) { m_acceptsMouseMoved = accepts; }

    // Hands the event to the first responder, by its type.
    void sendEvent(Event const& event);

    // To be called when the window's size or the display's scale has changed: the view's frame follows.
    void drawableSizeChanged();

    // From the desktop's units, origin at the top left, to whole pixels of the game, origin at the bottom
    // left.
    Point pixelsFromWindow(int x, int y) const;

    void releaseView(); // shows nothing from now on

private:
    explicit Window(RawWindow window);
    static std::unique_ptr<Window> wrap(RawWindow window);

    RawWindow m_window;
    WindowPixels m_pixels;
    OpenGLView* m_view = nullptr;
    OpenGLView* m_firstResponder = nullptr;
    bool m_acceptsMouseMoved = false;
};

} // namespace platform
