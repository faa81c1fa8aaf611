// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/OpenGLView.h"

#include "platform/window/Display.h"

#include <cstddef>

namespace platform
{

std::unique_ptr<PixelFormat> PixelFormat::initWithAttributes(std::span<unsigned const> attributes)
{
    std::unique_ptr<PixelFormat> format(new PixelFormat);
    std::size_t i = 0;
    while (i < attributes.size() && attributes[i] != 0)
    {
        bool const hasValue =
            attributes[i] == kPixelFormatColorSize || attributes[i] == kPixelFormatDepthSize;
        if (hasValue && i + 1 >= attributes.size())
        {
            return nullptr;
        }
        int const value = hasValue ? static_cast<int>(attributes[i + 1]) : 0;
        switch (attributes[i])
        {
        case kPixelFormatDoubleBuffer:
            format->m_doubleBuffer = true;
            break;
        case kPixelFormatAccelerated:
            format->m_accelerated = true;
            break;
        case kPixelFormatColorSize:
            format->m_colorSize = value;
            break;
        case kPixelFormatDepthSize:
            format->m_depthSize = value;
            break;
        default:
            return nullptr;
        }
        i += hasValue ? 2 : 1;
    }
    bool const ended = i < attributes.size();
    return ended && OpenDisplay() ? std::move(format) : nullptr;
}

bool OpenGLView::initWithPixelFormat(Rect frame, PixelFormat const& format)
{
    auto context = std::make_unique<OpenGLContext>();
    if (!context->create(format, frame.size))
    {
        return false;
    }
    m_context = std::move(context);
    m_frame.size = frame.size;
    return true;
}

void OpenGLView::setFrameSize(Size size)
{
    bool const same = m_frame.size.width == size.width && m_frame.size.height == size.height;
    if (same && m_shaped)
    {
        return;
    }
    m_frame.size = size;
    m_shaped = true;
    reshape();
}

} // namespace platform
