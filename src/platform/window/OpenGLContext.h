// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An OpenGL context of the compatibility profile, double-buffered. It draws into the window that shows its
// view.
#pragma once

#include "platform/window/Display.h"
#include "platform/window/FramePace.h"

#include <memory>

namespace platform
{

// What a context is asked for, in bits. A driver without that depth gives the nearest below.
struct PixelFormat
{
    int colorSize = 32;
    int depthSize = 32;
};

class OpenGLContext
{
public:
    // Null, with one log line, when there is no display or the driver has no such context to give. Current
    // from then on.
    static std::unique_ptr<OpenGLContext> initWithFormat(PixelFormat format);

    // The living context with that handle of SDL's; null when there is none.
    static OpenGLContext const* withHandle(void* handle);

    ~OpenGLContext();
    OpenGLContext(OpenGLContext const&) = delete;
    OpenGLContext& operator=(OpenGLContext const&) = delete;

    bool makeCurrentContext() const;

    // Presents the back buffer of the window that shows the view, at the display's next refresh: where the
    // driver cannot wait for that, by the clock.
    void flushBuffer();

    // Off: flushBuffer() waits for nothing, which measurements need. On at first.
    void setWaitsForDisplay(bool waits);

    // Draws into that window from now on, and is current. False when the driver refuses; it then draws where
    // it drew before.
    bool drawInto(SDL_Window* window);

    // Stops drawing into that window, which is about to close.
    void leave(SDL_Window* window);

private:
    struct Deleter
    {
        void operator()(void* context) const;
    };

    OpenGLContext();
    bool make(PixelFormat format, int depthSize);
    void setSwapInterval();

    RawWindow m_home; // never shown; a context needs a window even while none shows its view
    std::unique_ptr<void, Deleter> m_context;
    SDL_Window* m_target = nullptr;
    bool m_waitsForDisplay = true;
    bool m_driverWaits = false;
    FramePace m_pace;
};

} // namespace platform
