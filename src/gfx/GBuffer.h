// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An off-screen pixel buffer in main memory that pictures are drawn into and copied from, scaled.
#pragma once

#include "platform/base/Geometry.h"
#include "platform/image/PixelBuffer.h"

#include <cstdlib>
#include <memory>

class GBuffer
{
public:
    GBuffer() = default;
    virtual ~GBuffer() = default;
    GBuffer(GBuffer const&) = delete;
    GBuffer& operator=(GBuffer const&) = delete;

    // size: whole pixels; bitDepth: 16 (native-endian 1-5-5-5) or 32 (bytes B, G, R, A, premultiplied). Null
    // when that fails.
    static std::shared_ptr<GBuffer> Create(platform::Size size, int bitDepth);

    // False, after one log line, when the memory is refused or nothing can be drawn into it. Memory that was
    // given stays; size and depth are those of before.
    bool CreateImageBuffer(platform::Size size, int bitDepth);

    // False when there is no memory that copyTo() could draw into.
    bool CreateCGContext() const { return m_isTarget; }

    // Draws this buffer's picture, scaled and interpolated, over the destination's whole area. The source's
    // memory is read as 32-bit pixels whatever its depth.
    void copyTo(GBuffer& destination) const;

    // Uploads the buffer as one level of the bound GL_TEXTURE_2D. formatFor32Bit: the internal format of a
    // 32-bit buffer; any other depth is kept as GL_RGB5_A1.
    void UploadTextureLevel(int level, int formatFor32Bit) const;

    float GetWidth() const { return m_width; }   // pixels
    float GetHeight() const { return m_height; } // pixels
    int GetBitDepth() const { return m_bitDepth; }

    // Row after row without padding, null without memory.
    void const* GetPixels() const { return m_pixels.get(); }

protected:
    platform::PixelBuffer Pixels() const;
    void ReleasePixels()
    {
        m_isTarget = false;
        m_pixels.reset();
    }

private:
    bool CanBeTarget(platform::PixelBuffer const& memory) const;

    struct Free
    {
        void operator()(void* memory) const { std::free(memory); }
    };

    float m_width = 0.0F;
    float m_height = 0.0F;
    int m_bitDepth = 0;
    bool m_isTarget = false; // the memory is of that size and depth, and can be drawn into
    std::unique_ptr<void, Free> m_pixels;
};
