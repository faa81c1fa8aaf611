// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/WindowIcon.h"

#include "platform/base/Bundle.h"
#include "platform/base/File.h"
#include "platform/base/Log.h"
#include "platform/image/ImageDecoder.h"

#include <SDL.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>

namespace platform
{

namespace
{

struct SurfaceDeleter
{
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

constexpr char const* kName = "quarrow-64.png";
constexpr int kLongestSide = 512; // pixels; no desktop shows a larger one

std::uint32_t Straight(std::uint32_t premultiplied)
{
    std::uint32_t const alpha = premultiplied >> 24U;
    std::uint32_t pixel = premultiplied & 0xFF000000U;
    for (unsigned const shift : {16U, 8U, 0U})
    {
        std::uint32_t const color = (premultiplied >> shift) & 255U;
        pixel |= (alpha == 0 ? 0U : std::min(255U, (color * 255U + alpha / 2U) / alpha)) << shift;
    }
    return pixel;
}

// Told from its header first: a picture of any size may lie where the icon should be.
Surface DecodeIcon(std::filesystem::path const& file)
{
    auto const bytes = ReadWholeFile(file);
    auto const header = bytes ? ReadImageHeader(*bytes) : std::nullopt;
    if (!header || std::max(header->description.width, header->description.height) > kLongestSide)
    {
        return nullptr;
    }
    Pixels const pixels = DecodeImage(*bytes, *header);
    int const width = header->description.width;
    int const height = header->description.height;
    Surface icon(pixels ? SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888)
                        : nullptr);
    for (int y = 0; icon && y < height; ++y)
    {
        auto const* const row = pixels.get() + std::ptrdiff_t{y} * width;
        auto* const target = static_cast<std::byte*>(icon->pixels) + std::ptrdiff_t{y} * icon->pitch;
        std::transform(row, row + width, reinterpret_cast<std::uint32_t*>(target), Straight);
    }
    return icon;
}

Surface LoadIcon()
{
    auto const file = Bundle::pathForResource(kName, "Icons");
    Surface icon = file ? DecodeIcon(*file) : nullptr;
    if (!icon)
    {
        LogFormat("The window's icon %s cannot be used", kName);
    }
    return icon;
}

} // namespace

void SetWindowIcon(SDL_Window* window)
{
    static Surface const icon = LoadIcon();
    if (icon)
    {
        SDL_SetWindowIcon(window, icon.get());
    }
}

} // namespace platform
