// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A view that fills a window and draws with OpenGL: its context and the messages it gets.
#pragma once

#include "platform/input/Responder.h"
#include "platform/window/OpenGLContext.h"

#include <memory>

namespace platform
{

class Window;

class OpenGLView : public Responder
{
public:
    ~OpenGLView() override;

    // frame: the content rectangle in the game's pixels. False when the view cannot be made.
    virtual bool initWithFrame(Rect frame) = 0;
    virtual void awakeFromNib() = 0; // the interface file is loaded, the window made
    virtual void reshape() = 0;      // the frame's size has changed
    virtual void toggleFullScreen() = 0;
    virtual bool wantsKey(Event const& key) = 0; // as a key of its own, where it would be a command's

    // True while nothing slow, such as a save, may come between two frames.
    virtual bool needsEvenFrames() = 0;

    virtual bool acceptsFirstResponder() = 0;
    virtual bool becomeFirstResponder() = 0;
    virtual bool resignFirstResponder() = 0;

    Window* window() const { return m_window; }
    OpenGLContext* openGLContext() const { return m_context.get(); }

protected:
    OpenGLView() = default;

    bool initWithPixelFormat(Rect frame, PixelFormat format);

private:
    friend class Window;

    bool m_shaped = false;
    Window* m_window = nullptr;
    std::unique_ptr<OpenGLContext> m_context;
};

} // namespace platform
