// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/OpenGLView.h"

#include "platform/window/Window.h"

namespace platform
{

OpenGLView::~OpenGLView()
{
    if (m_window != nullptr)
    {
        m_window->releaseView();
    }
}

bool OpenGLView::initWithPixelFormat(Rect frame, PixelFormat format)
{
    m_frame.size = frame.size;
    m_context = OpenGLContext::initWithFormat(format);
    return m_context != nullptr;
}

} // namespace platform
