// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A view that fills a window and draws with OpenGL: its pixel format, its context and the messages it gets.
// kGLView is the game's; Application makes it when it loads the main interface file.
#pragma once

#include "platform/base/Geometry.h"
#include "platform/window/Event.h"

#include <memory>
#include <span>

namespace platform
{

class Window;

enum PixelFormatAttribute : unsigned
{
    kPixelFormatDoubleBuffer = 5,
    kPixelFormatAccelerated = 73,
    kPixelFormatColorSize = 8,  // bits follow
    kPixelFormatDepthSize = 12, // bits follow; the nearest that the driver has
};

// What an OpenGL context is asked for. Compatibility profile.
class PixelFormat
{
public:
    // attributes: as enumerated above, ended by 0. Null when they are malformed or there is no display to
    // draw on.
    static std::unique_ptr<PixelFormat> initWithAttributes(std::span<unsigned const> attributes);

    bool doubleBuffer() const { return m_doubleBuffer; }
    bool accelerated() const { return m_accelerated; }
    int colorSize() const { return m_colorSize; }
    int depthSize() const { return m_depthSize; }

private:
    PixelFormat() = default;

    bool m_doubleBuffer = false;
    bool m_accelerated = false;
    int m_colorSize = 0;
    int m_depthSize = 0;
};

// A context, current on whichever window shows its view.
class OpenGLContext
{
public:
    OpenGLContext();
    ~OpenGLContext();
    OpenGLContext(OpenGLContext const&) = delete;
    OpenGLContext& operator=(OpenGLContext const&) = delete;

    // Makes the context in a window of that content size which stays hidden until a Window takes it. False,
    // with one log line, when the driver has none to give. The swap waits for the display where the driver
    // can.
    bool create(PixelFormat const& format, Size size);

    void makeCurrentContext();
    void flushBuffer(); // presents the back buffer of the window that shows the view

    struct Surface;
    Surface& surface() { return *m_surface; }

private:
    std::unique_ptr<Surface> m_surface;
};

class OpenGLView
{
public:
    virtual ~OpenGLView() = default;
    OpenGLView(OpenGLView const&) = delete;
    OpenGLView& operator=(OpenGLView const&) = delete;

    // frame: the content rectangle in pixels. False when the view cannot be made.
    virtual bool initWithFrame(Rect frame) = 0;
    virtual void awakeFromNib() = 0; // the interface file has been loaded, the window stands
    virtual void reshape() = 0;      // the frame's size has changed
    virtual void toggleFullScreen() = 0;

    virtual bool acceptsFirstResponder() = 0;
    virtual bool becomeFirstResponder() = 0;
    virtual bool resignFirstResponder() = 0;
    virtual void keyDown(Event const& event) = 0;
    virtual void mouseMoved(Event const& event) = 0;
    virtual void mouseUp(Event const& event) = 0; // left button
    virtual void scrollWheel(Event const& event) = 0;

    // Size in pixels of the drawable that shows the view; origin always (0, 0).
    Rect frame() const { return m_frame; }
    Window* window() const { return m_window; }
    OpenGLContext* openGLContext() const { return m_context.get(); }

protected:
    OpenGLView() = default;
    bool initWithPixelFormat(Rect frame, PixelFormat const& format);

private:
    friend class Window;
    void setFrameSize(Size size); // calls reshape() the first time, then whenever the size differs

    Rect m_frame;
    bool m_shaped = false;
    Window* m_window = nullptr;
    std::unique_ptr<OpenGLContext> m_context;
};

} // namespace platform
