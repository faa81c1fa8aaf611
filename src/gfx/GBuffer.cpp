// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/GBuffer.h"

#include "gfx/QTUtil.h"
#include "platform/base/Log.h"
#include "platform/base/OpenGL.h"

std::shared_ptr<GBuffer> GBuffer::Create(platform::Size size, int bitDepth)
{
    auto buffer = std::make_shared<GBuffer>();
    return buffer->CreateImageBuffer(size, bitDepth) ? buffer : nullptr;
}

bool GBuffer::CreateImageBuffer(platform::Size size, int bitDepth)
{
    auto const rowBytes = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(bitDepth / 8);
    m_isTarget = false;
    m_pixels.reset(std::calloc(static_cast<std::size_t>(size.height), rowBytes));
    if (!m_pixels)
    {
        QTUtilLog("buffer malloc failed");
        return false;
    }
    m_isTarget =
        CanBeTarget({m_pixels.get(), static_cast<int>(size.width), static_cast<int>(size.height), bitDepth});
    if (m_isTarget)
    {
        m_width = size.width;
        m_height = size.height;
        m_bitDepth = bitDepth;
    }
    return m_isTarget;
}

// Logs why not.
bool GBuffer::CanBeTarget(platform::PixelBuffer const& memory) const
{
    if (!platform::CanDrawInto(memory))
    {
        platform::LogFormat("NewGWorld failed %d, %1.f x %1.f", m_bitDepth, static_cast<double>(m_width),
                            static_cast<double>(m_height));
        return false;
    }
    if (memory.width < 1 || memory.height < 1)
    {
        QTUtilLog("GetGWorldPixMap");
        return false;
    }
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
    constexpr GLint kUsualAlignment = 4; // bytes; rows of 16-bit pixels may end between two multiples of it
    glPixelStorei(GL_UNPACK_ALIGNMENT, is32Bit ? kUsualAlignment : 2);
    glTexImage2D(GL_TEXTURE_2D, level, is32Bit ? formatFor32Bit : GL_RGB5_A1, static_cast<GLsizei>(m_width),
                 static_cast<GLsizei>(m_height), 0, GL_BGRA,
                 is32Bit ? GL_UNSIGNED_INT_8_8_8_8_REV : GL_UNSIGNED_SHORT_1_5_5_5_REV, m_pixels.get());
    glPixelStorei(GL_UNPACK_ALIGNMENT, kUsualAlignment);
}

platform::PixelBuffer GBuffer::Pixels() const
{
    void* const pixels = m_isTarget ? m_pixels.get() : nullptr;
    return {pixels, static_cast<int>(m_width), static_cast<int>(m_height), m_bitDepth};
}
