// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// SDL_image decodes; the result is kept as premultiplied 32-bit pixels and drawn through Cairo.
#include "platform/ImageImporter.h"

#include "platform/File.h"
#include "platform/ImageHeader.h"
#include "platform/PixelSurface.h"
#include "platform/QuietStandardError.h"

#include <SDL_image.h>

#include <algorithm>
#include <array>
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

constexpr std::size_t kLargestFile = std::size_t{64} << 20U; // bytes

constexpr FourCharCode kJpeg = 0x4A504547; // 'JPEG'

// The name by which SDL_image knows the type.
char const* DecoderName(FourCharCode type)
{
    constexpr std::array<std::pair<FourCharCode, char const*>, 6> kNames{{
        {kJpeg, "JPG"},
        {0x504E4766, "PNG"},  // 'PNGf'
        {0x47494666, "GIF"},  // 'GIFf'
        {0x54494646, "TIF"},  // 'TIFF'
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
    QuietStandardError const quiet;
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

template <typename Conversion>
void CopyPixels(SDL_Surface const& surface, std::uint32_t* pixels, Conversion convert)
{
    auto const* row = static_cast<std::byte const*>(surface.pixels);
    for (int y = 0; y < surface.h; ++y, row += surface.pitch, pixels += surface.w)
    {
        auto const* const source = reinterpret_cast<std::uint32_t const*>(row);
        std::transform(source, source + surface.w, pixels, convert);
    }
}

bool HasFourInks(SDL_Surface const& surface, ImageHeader const& header)
{
    return header.type == kJpeg && header.description.depth == 32 && surface.format->BitsPerPixel == 32;
}

void CopyInks(SDL_Surface const& surface, bool inverted, std::uint32_t* pixels)
{
    std::uint32_t const flip = inverted ? 0U : 0xFFFFFFFFU;
    CopyPixels(surface, pixels, [flip](std::uint32_t pixel) { return FromInks(pixel ^ flip); });
}

bool CopyColors(SDL_Surface* surface, std::uint32_t* pixels)
{
    Surface const converted(SDL_ConvertSurfaceFormat(surface, SDL_PIXELFORMAT_ARGB8888, 0));
    if (converted)
    {
        CopyPixels(*converted, pixels, Premultiplied);
    }
    return converted != nullptr;
}

} // namespace

struct ImageImporter::Decoded
{
    ImageDescription description;
    Pixels pixels; // null until there are data
};

ImageImporter::ImageImporter(FourCharCode type) : m_type(type), m_decoded(std::make_unique<Decoded>())
{
}

ImageImporter::~ImageImporter() = default;

std::unique_ptr<ImageImporter> ImageImporter::forFile(std::filesystem::path const& file)
{
    auto const bytes = ReadWholeFile(file);
    auto const header = bytes ? ReadImageHeader(*bytes) : std::nullopt;
    if (!header || !IsUsableSize(header->description.width, header->description.height))
    {
        return nullptr;
    }
    std::unique_ptr<ImageImporter> importer(new ImageImporter(header->type));
    importer->m_decoded->description = header->description;
    return importer;
}

std::unique_ptr<ImageImporter> ImageImporter::forType(FourCharCode type)
{
    return IsKnownImageType(type) ? std::unique_ptr<ImageImporter>(new ImageImporter(type)) : nullptr;
}

bool ImageImporter::setData(std::span<std::byte const> bytes)
{
    m_decoded->pixels = nullptr;
    auto const header = bytes.size() <= kLargestFile ? ReadImageHeader(bytes) : std::nullopt;
    if (!header || header->type != m_type ||
        !IsUsableSize(header->description.width, header->description.height))
    {
        return false;
    }
    Surface const surface = Decode(bytes, m_type);
    if (!surface || surface->w != header->description.width || surface->h != header->description.height)
    {
        return false;
    }
    Pixels pixels = AllocatePixels(surface->w, surface->h);
    if (!pixels)
    {
        return false;
    }
    if (HasFourInks(*surface, *header))
    {
        CopyInks(*surface, header->invertedInk, pixels.get());
    }
    else if (!CopyColors(surface.get(), pixels.get()))
    {
        return false;
    }
    *m_decoded = {header->description, std::move(pixels)};
    return true;
}

ImageDescription ImageImporter::description() const
{
    return m_decoded->description;
}

FourCharCode ImageImporter::type() const
{
    return m_type;
}

bool ImageImporter::setTarget(PixelBuffer const& target)
{
    if (!IsUsable(target))
    {
        return false;
    }
    m_target = target;
    return true;
}

void ImageImporter::setMatrix(double scaleX, double scaleY, double translateX, double translateY)
{
    m_scaleX = scaleX;
    m_scaleY = scaleY;
    m_translateX = translateX;
    m_translateY = translateY;
}

bool ImageImporter::draw()
{
    Picture const picture{m_decoded->pixels.get(), m_decoded->description.width,
                          m_decoded->description.height};
    return DrawPicture(picture, {m_scaleX, m_scaleY, m_translateX, m_translateY}, m_target);
}

} // namespace platform
