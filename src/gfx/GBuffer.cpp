// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/GBuffer.h"

#include "gfx/QTUtil.h"

#include <limits>

namespace
{

// Bytes of a buffer; 0 when it has none or more than an unsigned can tell.
unsigned BufferSize(platform::Size size, int bitDepth)
{
    int const bytesPerPixel = bitDepth / 8;
    double const bytes = static_cast<double>(size.width) * size.height * bytesPerPixel;
    return bytes >= 1.0 && bytes <= std::numeric_limits<int>::max() ? static_cast<unsigned>(bytes) : 0;
}

} // namespace

std::shared_ptr<GBuffer> GBuffer::Create(platform::Size size, int bitDepth)
{
    auto buffer = std::make_shared<GBuffer>();
    return buffer->CreateImageBuffer(size, bitDepth) ? buffer : nullptr;
}

bool GBuffer::CreateImageBuffer(platform::Size size, int bitDepth)
{
    unsigned const bytes = BufferSize(size, bitDepth);
    m_hasContext = false;
    m_pixels.reset(bytes > 0 ? std::calloc(bytes, 1) : nullptr);
    if (!m_pixels)
    {
        QTUtilLog("buffer malloc failed");
        return false;
    }
    m_size = bytes;
    m_width = size.width;
    m_height = size.height;
    m_bitDepth = bitDepth;
    return true;
}

bool GBuffer::CreateCGContext()
{
    m_hasContext = m_pixels != nullptr;
    return m_hasContext;
}

void GBuffer::copyTo(GBuffer& destination) const
{
    if (destination.CreateCGContext())
    {
        platform::DrawScaled(Pixels(), destination.Pixels());
    }
}

platform::PixelBuffer GBuffer::Pixels() const
{
    return {m_pixels.get(), static_cast<int>(m_width), static_cast<int>(m_height), m_bitDepth};
}

void GBuffer::ReleasePixels()
{
    m_pixels.reset();
    m_hasContext = false;
}
