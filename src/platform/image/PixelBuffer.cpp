// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Scaled copies between buffers, as mipmaps need them.
#include "platform/image/PixelBuffer.h"

#include "platform/image/PixelSurface.h"

#include <cstring>

namespace platform
{

bool DrawScaled(PixelBuffer const& source, PixelBuffer const& destination)
{
    if (!IsUsable(source) || !IsUsable(destination))
    {
        return false;
    }
    Pixels widened;
    void const* pixels = source.pixels;
    if (source.bitDepth != 32)
    {
        widened = AllocatePixels(source.width, source.height);
        if (!widened)
        {
            return false;
        }
        std::memcpy(widened.get(), source.pixels, source.size());
        pixels = widened.get();
    }
    PictureMatrix matrix;
    matrix.scaleX = static_cast<double>(destination.width) / source.width;
    matrix.scaleY = static_cast<double>(destination.height) / source.height;
    return DrawPicture({static_cast<std::uint32_t const*>(pixels), source.width, source.height}, matrix,
                       destination);
}

} // namespace platform
