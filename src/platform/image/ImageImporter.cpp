// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/image/ImageImporter.h"

#include <SDL_image.h>

#include <algorithm>
#include <array>
#include <utility>

namespace platform
{
namespace
{

struct SdlDeleter
{
    void operator()(SDL_RWops* stream) const { SDL_RWclose(stream); }
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Stream = std::unique_ptr<SDL_RWops, SdlDeleter>;
using Surface = std::unique_ptr<SDL_Surface, SdlDeleter>;

struct Format
{
    FourCharCode type;
    int (*recognizes)(SDL_RWops* stream);
};

constexpr std::array<Format, 4> kFormats{{
    {0x4A504547, IMG_isJPG},  // 'JPEG'
    {0x504E4766, IMG_isPNG},  // 'PNGf'
    {0x424D5066, IMG_isBMP},  // 'BMPf'
    {0x57454250, IMG_isWEBP}, // 'WEBP'
}};

// 0 for a stream of no known type.
FourCharCode TypeOf(SDL_RWops* stream)
{
    auto const* const format =
        std::find_if(kFormats.begin(), kFormats.end(),
                     [stream](Format const& candidate) { return candidate.recognizes(stream) != 0; });
    return format != kFormats.end() ? format->type : 0;
}

std::uint32_t Scaled(std::uint32_t component, std::uint32_t alpha)
{
    return (component * alpha + 127U) / 255U;
}

std::uint32_t Premultiplied(std::uint32_t pixel)
{
    std::uint32_t const alpha = pixel >> 24U;
    if (alpha == 255U)
    {
        return pixel;
    }
    return (alpha << 24U) | (Scaled((pixel >> 16U) & 255U, alpha) << 16U) |
           (Scaled((pixel >> 8U) & 255U, alpha) << 8U) | Scaled(pixel & 255U, alpha);
}

void Premultiply(SDL_Surface const& surface)
{
    auto* const pixels = static_cast<std::uint32_t*>(surface.pixels);
    std::transform(pixels, pixels + std::ptrdiff_t{surface.w} * surface.h, pixels, Premultiplied);
}

// SDL keeps a thread's last error, and gives that memory back by itself only for threads that it has started.
struct ErrorOfThread
{
    ~ErrorOfThread() { SDL_TLSCleanup(); }
};

} // namespace

struct ImageImporter::Decoded
{
    FourCharCode type = 0;
    int depth = 0;
    Surface surface; // premultiplied, 32 bits per pixel

    static std::unique_ptr<Decoded> from(Stream stream);
};

std::unique_ptr<ImageImporter::Decoded> ImageImporter::Decoded::from(Stream stream)
{
    thread_local ErrorOfThread const error;
    FourCharCode const type = TypeOf(stream.get());
    Surface const stored(IMG_Load_RW(stream.get(), SDL_FALSE));
    Surface wide(stored ? SDL_ConvertSurfaceFormat(stored.get(), SDL_PIXELFORMAT_ARGB8888, 0) : nullptr);
    if (!wide)
    {
        return nullptr;
    }
    Premultiply(*wide);
    return std::make_unique<Decoded>(Decoded{type, stored->format->BitsPerPixel, std::move(wide)});
}

ImageImporter::ImageImporter(FourCharCode type) : m_type(type)
{
}

ImageImporter::~ImageImporter() = default;

std::unique_ptr<ImageImporter> ImageImporter::forFile(std::filesystem::path const& file)
{
    auto decoded = Decoded::from(Stream(SDL_RWFromFile(file.c_str(), "rb")));
    if (!decoded)
    {
        return nullptr;
    }
    std::unique_ptr<ImageImporter> importer(new ImageImporter(decoded->type));
    importer->m_decoded = std::move(decoded);
    return importer;
}

std::unique_ptr<ImageImporter> ImageImporter::forType(FourCharCode type)
{
    bool const isKnown = std::any_of(kFormats.begin(), kFormats.end(),
                                     [type](Format const& format) { return format.type == type; });
    return isKnown ? std::unique_ptr<ImageImporter>(new ImageImporter(type)) : nullptr;
}

bool ImageImporter::setData(std::span<std::byte const> bytes)
{
    Stream stream(SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size())));
    bool const isOfType = TypeOf(stream.get()) == m_type;
    m_decoded = isOfType ? Decoded::from(std::move(stream)) : nullptr;
    return isOfType;
}

ImageDescription ImageImporter::description() const
{
    return m_decoded ? ImageDescription{m_decoded->surface->w, m_decoded->surface->h, m_decoded->depth}
                     : ImageDescription{};
}

bool ImageImporter::setTarget(PixelBuffer const& target)
{
    m_target = target;
    return target.pixels != nullptr;
}

bool ImageImporter::draw()
{
    if (!m_decoded)
    {
        return false;
    }
    SDL_Surface const& surface = *m_decoded->surface;
    return DrawPicture({surface.pixels, surface.w, surface.h, 32}, m_matrix, m_target);
}

} // namespace platform
