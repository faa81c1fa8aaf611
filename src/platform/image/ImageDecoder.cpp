// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// SDL_image decodes, except for PNG: at the end of a cut-off file it hands libpng its last chunk again and
// again, for ever. Cairo's own PNG reader stops there.
#include "platform/image/ImageDecoder.h"

#include "platform/base/CairoHandles.h"

#include <SDL_image.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>

namespace platform
{
namespace
{

struct SurfaceDeleter
{
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

constexpr FourCharCode kJpeg = 0x4A504547; // 'JPEG'
constexpr FourCharCode kPng = 0x504E4766;  // 'PNGf'

// The name by which SDL_image knows the type.
char const* DecoderName(FourCharCode type)
{
    constexpr std::array<std::pair<FourCharCode, char const*>, 3> kNames{{
        {kJpeg, "JPG"},
        {0x57454250, "WEBP"}, // 'WEBP'
        {0x424D5066, "BMP"},  // 'BMPf'
    }};
    auto const name = std::find_if(kNames.begin(), kNames.end(),
                                   [&](auto const& candidate) { return candidate.first == type; });
    return name != kNames.end() ? name->second : nullptr;
}

Surface Decode(std::span<std::byte const> bytes, FourCharCode type)
{
    SDL_RWops* const stream = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
    if (stream == nullptr)
    {
        return nullptr;
    }
    return Surface(IMG_LoadTyped_RW(stream, SDL_TRUE, DecoderName(type)));
}

std::uint32_t Scaled(std::uint32_t component, std::uint32_t factor)
{
    return (component * factor + 127U) / 255U;
}

std::uint32_t Premultiplied(std::uint32_t pixel)
{
    std::uint32_t const alpha = pixel >> 24U;
    return (alpha << 24U) | (Scaled((pixel >> 16U) & 255U, alpha) << 16U) |
           (Scaled((pixel >> 8U) & 255U, alpha) << 8U) | Scaled(pixel & 255U, alpha);
}

// Four-colour pictures come undecoded as bytes cyan, magenta, yellow, black, each the amount of light that
// the ink lets through.
std::uint32_t FromInks(std::uint32_t pixel)
{
    std::uint32_t const black = pixel >> 24U;
    return 0xFF000000U | (Scaled(pixel & 255U, black) << 16U) | (Scaled((pixel >> 8U) & 255U, black) << 8U) |
           Scaled((pixel >> 16U) & 255U, black);
}

// Three bytes a pixel, as JPEG comes.
struct PackedColor
{
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

std::uint32_t FromPacked(PackedColor color)
{
    return 0xFF000000U | (std::uint32_t{color.red} << 16U) | (std::uint32_t{color.green} << 8U) | color.blue;
}

// convert: from a Source, one pixel of the rows.
template <typename Source = std::uint32_t, typename Conversion>
void CopyRows(void const* rows, int pitch, ImageDescription const& description, std::uint32_t* pixels,
              Conversion convert)
{
    auto const* row = static_cast<std::byte const*>(rows);
    for (int y = 0; y < description.height; ++y, row += pitch, pixels += description.width)
    {
        auto const* const source = reinterpret_cast<Source const*>(row);
        std::transform(source, source + description.width, pixels, convert);
    }
}

bool HasFourInks(SDL_Surface const& surface, ImageHeader const& header)
{
    return header.type == kJpeg && header.description.depth == 32 && surface.format->BitsPerPixel == 32;
}

void CopyInks(SDL_Surface const& surface, ImageHeader const& header, std::uint32_t* pixels)
{
    std::uint32_t const flip = header.invertedInk ? 0U : 0xFFFFFFFFU;
    CopyRows(surface.pixels, surface.pitch, header.description, pixels,
             [flip](std::uint32_t pixel) { return FromInks(pixel ^ flip); });
}

// Neither alpha nor a palette, which may hold a transparent colour.
bool IsOpaque(SDL_PixelFormat const& format)
{
    return format.palette == nullptr && !SDL_ISPIXELFORMAT_ALPHA(format.format);
}

bool CopyColors(SDL_Surface* surface, ImageHeader const& header, std::uint32_t* pixels)
{
    // Four times as fast as SDL's own conversion, and the sky is large.
    if (surface->format->format == SDL_PIXELFORMAT_RGB24)
    {
        CopyRows<PackedColor>(surface->pixels, surface->pitch, header.description, pixels, FromPacked);
        return true;
    }
    if (IsOpaque(*surface->format))
    {
        return SDL_ConvertPixels(surface->w, surface->h, surface->format->format, surface->pixels,
                                 surface->pitch, SDL_PIXELFORMAT_ARGB8888, pixels,
                                 surface->w * static_cast<int>(sizeof(std::uint32_t))) == 0;
    }
    Surface const converted(SDL_ConvertSurfaceFormat(surface, SDL_PIXELFORMAT_ARGB8888, 0));
    if (converted)
    {
        CopyRows(converted->pixels, converted->pitch, header.description, pixels, Premultiplied);
    }
    return converted != nullptr;
}

// Cairo's own pixels are premultiplied already.
Pixels PixelsOfPng(std::span<std::byte const> bytes, ImageDescription const& description)
{
    auto const read = [](void* closure, unsigned char* data, unsigned length)
    {
        auto& rest = *static_cast<std::span<std::byte const>*>(closure);
        if (length > rest.size())
        {
            return CAIRO_STATUS_READ_ERROR;
        }
        std::memcpy(data, rest.data(), length);
        rest = rest.subspan(length);
        return CAIRO_STATUS_SUCCESS;
    };
    CairoSurface const surface = UsableSurface(cairo_image_surface_create_from_png_stream(read, &bytes));
    if (!surface || cairo_image_surface_get_width(surface.get()) != description.width ||
        cairo_image_surface_get_height(surface.get()) != description.height)
    {
        return nullptr;
    }
    cairo_format_t const format = cairo_image_surface_get_format(surface.get());
    Pixels pixels = AllocatePixels(description.width, description.height);
    if (!pixels || (format != CAIRO_FORMAT_ARGB32 && format != CAIRO_FORMAT_RGB24))
    {
        return nullptr;
    }
    std::uint32_t const opaque = format == CAIRO_FORMAT_RGB24 ? 0xFF000000U : 0U;
    CopyRows(cairo_image_surface_get_data(surface.get()), cairo_image_surface_get_stride(surface.get()),
             description, pixels.get(), [opaque](std::uint32_t pixel) { return pixel | opaque; });
    return pixels;
}

Pixels PixelsOfSurface(std::span<std::byte const> bytes, ImageHeader const& header)
{
    Surface const surface = Decode(bytes, header.type);
    if (!surface || surface->w != header.description.width || surface->h != header.description.height)
    {
        return nullptr;
    }
    Pixels pixels = AllocatePixels(surface->w, surface->h);
    if (!pixels)
    {
        return nullptr;
    }
    if (HasFourInks(*surface, header))
    {
        CopyInks(*surface, header, pixels.get());
        return pixels;
    }
    return CopyColors(surface.get(), header, pixels.get()) ? std::move(pixels) : nullptr;
}

} // namespace

Pixels DecodeImage(std::span<std::byte const> bytes, ImageHeader const& header)
{
    return header.type == kPng ? PixelsOfPng(bytes, header.description) : PixelsOfSurface(bytes, header);
}

} // namespace platform
