// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Scaled drawing through Cairo, which has no format for 1-5-5-5: such a target is converted to 32 bits, drawn
// into and converted back.
#include "platform/image/PixelBuffer.h"

#include "platform/base/CairoHandles.h"

#include <SDL.h>

#include <cstdint>
#include <cstring>
#include <vector>

namespace platform
{
namespace
{

using Pixels = std::vector<std::uint32_t>;

std::size_t PixelCount(PixelBuffer const& buffer)
{
    return static_cast<std::size_t>(buffer.width) * static_cast<std::size_t>(buffer.height);
}

CairoSurface Wrap(PixelBuffer const& buffer)
{
    return CairoSurface(cairo_image_surface_create_for_data(static_cast<unsigned char*>(buffer.pixels),
                                                            CAIRO_FORMAT_ARGB32, buffer.width, buffer.height,
                                                            buffer.width * 4));
}

bool DrawIn32Bits(PixelBuffer const& picture, PictureMatrix const& matrix, PixelBuffer const& target)
{
    CairoSurface const source = Wrap(picture);
    CairoSurface const surface = Wrap(target);
    CairoContext const context(cairo_create(surface.get()));
    cairo_t* const cairo = context.get();
    cairo_translate(cairo, matrix.translateX, matrix.translateY);
    cairo_scale(cairo, matrix.scaleX, matrix.scaleY);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cairo, source.get(), 0.0, 0.0);
    // Without padding a stretched picture would fade out at its edges.
    cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
    cairo_rectangle(cairo, 0.0, 0.0, picture.width, picture.height);
    cairo_fill(cairo);
    return cairo_status(cairo) == CAIRO_STATUS_SUCCESS;
}

void Convert(PixelBuffer const& from, std::uint32_t fromFormat, PixelBuffer const& to, std::uint32_t toFormat)
{
    SDL_ConvertPixels(from.width, from.height, fromFormat, from.pixels, from.width * from.bitDepth / 8,
                      toFormat, to.pixels, to.width * to.bitDepth / 8);
}

bool DrawIn16Bits(PixelBuffer const& picture, PictureMatrix const& matrix, PixelBuffer const& target)
{
    Pixels pixels(PixelCount(target));
    PixelBuffer const wide{pixels.data(), target.width, target.height, 32};
    Convert(target, SDL_PIXELFORMAT_ARGB1555, wide, SDL_PIXELFORMAT_ARGB8888);
    bool const drawn = DrawIn32Bits(picture, matrix, wide);
    Convert(wide, SDL_PIXELFORMAT_ARGB8888, target, SDL_PIXELFORMAT_ARGB1555);
    return drawn;
}

} // namespace

// Cairo has a greatest width and height.
bool CanDrawInto(PixelBuffer const& buffer)
{
    bool const hasKnownDepth = buffer.bitDepth == 16 || buffer.bitDepth == 32;
    return hasKnownDepth && cairo_surface_status(Wrap(buffer).get()) == CAIRO_STATUS_SUCCESS;
}

bool DrawPicture(PixelBuffer const& picture, PictureMatrix const& matrix, PixelBuffer const& target)
{
    if (picture.pixels == nullptr || target.pixels == nullptr)
    {
        return false;
    }
    return target.bitDepth == 16 ? DrawIn16Bits(picture, matrix, target)
                                 : DrawIn32Bits(picture, matrix, target);
}

bool DrawScaled(PixelBuffer const& source, PixelBuffer const& destination)
{
    PixelBuffer wide{source.pixels, source.width, source.height, 32};
    Pixels copy;
    if (source.bitDepth == 16 && source.pixels != nullptr)
    {
        copy.resize(PixelCount(source));
        std::memcpy(copy.data(), source.pixels, copy.size() * sizeof(std::uint16_t));
        wide.pixels = copy.data();
    }
    PictureMatrix matrix;
    matrix.scaleX = static_cast<double>(destination.width) / source.width;
    matrix.scaleY = static_cast<double>(destination.height) / source.height;
    return DrawPicture(wide, matrix, destination);
}

} // namespace platform
