// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/GBuffer.h"

#include "gfx/QTUtil.h"
#include "platform/base/OpenGL.h"

std::shared_ptr<GBuffer> GBuffer::Create(platform::Size size, int bitDepth)
{
    auto buffer = std::make_shared<GBuffer>();
    return buffer->CreateImageBuffer(size, bitDepth) ? buffer : nullptr;
}

bool GBuffer::CreateImageBuffer(platform::Size size, int bitDepth)
{
    auto const rowBytes = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(bitDepth / 8);
    m_pixels.reset(std::calloc(static_cast<std::size_t>(size.height), rowBytes));
    if (!m_pixels)
    {
        QTUtilLog("buffer malloc failed");
        return false;
    }
    m_width = size.width;
    m_height = size.height;
    m_bitDepth = bitDepth;
    return true;
}

void GBuffer::copyTo(GBuffer& destination) const
{
    if (destination.CreateCGContext())
    {
        platform::DrawScaled(Pixels(), destination.Pixels());
    }
}

void GBuffer::UploadTextureLevel(int level, int formatFor32Bit) const
{
    bool const is32Bit = m_bitDepth == 32;
    glTexImage2D(GL_TEXTURE_2D, level, is32Bit ? formatFor32Bit : GL_RGB5_A1, static_cast<GLsizei>(m_width),
                 static_cast<GLsizei>(m_height), 0, GL_BGRA,
                 is32Bit ? GL_UNSIGNED_INT_8_8_8_8_REV : GL_UNSIGNED_SHORT_1_5_5_5_REV, m_pixels.get());
}

platform::PixelBuffer GBuffer::Pixels() const
{
    return {m_pixels.get(), static_cast<int>(m_width), static_cast<int>(m_height), m_bitDepth};
}
