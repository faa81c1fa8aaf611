// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Scaled drawing through Cairo. A 16-bit target is drawn in 32 bits and turned back.
#include "platform/image/PixelSurface.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace platform
{
namespace
{

constexpr int kBytesPerPixel = 4;

std::uint32_t Widen(std::uint32_t five)
{
    return (five << 3U) | (five >> 2U);
}

std::uint32_t Narrow(std::uint32_t eight)
{
    return (eight * 31U + 127U) / 255U;
}

std::uint32_t From1555(std::uint16_t pixel)
{
    std::uint32_t const alpha = (pixel & 0x8000U) != 0 ? 0xFF000000U : 0U;
    return alpha | (Widen((pixel >> 10U) & 31U) << 16U) | (Widen((pixel >> 5U) & 31U) << 8U) |
           Widen(pixel & 31U);
}

std::uint16_t To1555(std::uint32_t pixel)
{
    std::uint32_t const alpha = (pixel >> 24U) >= 128U ? 0x8000U : 0U;
    return static_cast<std::uint16_t>(alpha | (Narrow((pixel >> 16U) & 255U) << 10U) |
                                      (Narrow((pixel >> 8U) & 255U) << 5U) | Narrow(pixel & 255U));
}

bool IsWhole(double value)
{
    return value == std::nearbyint(value);
}

// A picture of the target's own scale, flipped or not, on whole pixels: each pixel is one pixel.
bool IsPixelForPixel(PictureMatrix const& matrix)
{
    return std::abs(matrix.scaleX) == 1.0 && std::abs(matrix.scaleY) == 1.0 && IsWhole(matrix.translateX) &&
           IsWhole(matrix.translateY);
}

CairoSurface Wrap(void const* pixels, int width, int height)
{
    // Cairo only reads the memory of a surface that is painted from.
    auto* const memory = static_cast<unsigned char*>(const_cast<void*>(pixels));
    return UsableSurface(cairo_image_surface_create_for_data(memory, CAIRO_FORMAT_ARGB32, width, height,
                                                             width * kBytesPerPixel));
}

bool DrawIn32Bits(Picture const& picture, PictureMatrix const& matrix, void* pixels, int width, int height)
{
    CairoSurface const source = Wrap(picture.pixels, picture.width, picture.height);
    CairoSurface const target = Wrap(pixels, width, height);
    CairoContext const context = source && target ? UsableContext(target.get()) : nullptr;
    if (!context)
    {
        return false;
    }
    cairo_t* const cairo = context.get();
    cairo_matrix_t transformation;
    cairo_matrix_init(&transformation, matrix.scaleX, 0.0, 0.0, matrix.scaleY, matrix.translateX,
                      matrix.translateY);
    cairo_set_matrix(cairo, &transformation);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cairo, source.get(), 0.0, 0.0);
    // Without padding a stretched picture would fade out at its edges.
    cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(cairo_get_source(cairo),
                             IsPixelForPixel(matrix) ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
    cairo_rectangle(cairo, 0.0, 0.0, picture.width, picture.height);
    cairo_fill(cairo);
    cairo_surface_flush(target.get());
    return cairo_status(cairo) == CAIRO_STATUS_SUCCESS;
}

bool DrawIn16Bits(Picture const& picture, PictureMatrix const& matrix, PixelBuffer const& target)
{
    auto* const pixels = static_cast<std::uint16_t*>(target.pixels);
    std::size_t const count = target.size() / sizeof(std::uint16_t);
    Pixels const wide = AllocatePixels(target.width, target.height);
    if (!wide)
    {
        return false;
    }
    std::transform(pixels, pixels + count, wide.get(), From1555);
    if (!DrawIn32Bits(picture, matrix, wide.get(), target.width, target.height))
    {
        return false;
    }
    std::transform(wide.get(), wide.get() + count, pixels, To1555);
    return true;
}

bool IsDrawable(PictureMatrix const& matrix)
{
    bool const finite = std::isfinite(matrix.scaleX) && std::isfinite(matrix.scaleY) &&
                        std::isfinite(matrix.translateX) && std::isfinite(matrix.translateY);
    return finite && matrix.scaleX != 0.0 && matrix.scaleY != 0.0;
}

} // namespace

bool IsUsableSize(int width, int height)
{
    return width > 0 && height > 0 && width <= kLongestPictureSide && height <= kLongestPictureSide &&
           static_cast<std::size_t>(width) * static_cast<std::size_t>(height) <= kMostPicturePixels;
}

Pixels AllocatePixels(int width, int height)
{
    std::size_t const count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return Pixels(new (std::nothrow) std::uint32_t[count]());
}

bool IsUsable(PixelBuffer const& buffer)
{
    return buffer.pixels != nullptr && IsUsableSize(buffer.width, buffer.height) &&
           (buffer.bitDepth == 16 || buffer.bitDepth == 32);
}

bool DrawPicture(Picture const& picture, PictureMatrix const& matrix, PixelBuffer const& target)
{
    if (picture.pixels == nullptr || !IsUsable(target) || !IsDrawable(matrix))
    {
        return false;
    }
    return target.bitDepth == 16 ? DrawIn16Bits(picture, matrix, target)
                                 : DrawIn32Bits(picture, matrix, target.pixels, target.width, target.height);
}

} // namespace platform
