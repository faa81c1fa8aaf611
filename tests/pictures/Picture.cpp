// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "pictures/Picture.h"

#include <SDL.h>
#include <SDL_image.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace
{

constexpr double kMeanTolerance = 1.5;      // of 255
constexpr int kPixelTolerance = 40;         // of 255
constexpr double kFarPixelTolerance = 0.01; // share of pixels

using Surface = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

std::string GoldenFile(std::string const& name)
{
    return std::string(QUARROW_SOURCE_DIR "/tests/pictures/golden/") + name + ".png";
}

struct Difference
{
    double mean = 0.0;     // of 255
    double farShare = 0.0; // pixels beyond kPixelTolerance
};

Difference Compare(Picture const& a, Picture const& b)
{
    double sum = 0.0;
    double farPixels = 0.0;
    for (int y = 0; y < a.height(); ++y)
    {
        for (int x = 0; x < a.width(); ++x)
        {
            int most = 0;
            for (int c = 0; c < 3; ++c)
            {
                int const apart = std::abs(a.row(y)[x * 3 + c] - b.row(y)[x * 3 + c]);
                sum += apart;
                most = std::max(most, apart);
            }
            farPixels += most > kPixelTolerance ? 1.0 : 0.0;
        }
    }
    double const pixels = static_cast<double>(a.width()) * a.height();
    return {sum / (pixels * 3.0), farPixels / pixels};
}

} // namespace

Picture::Picture(int width, int height)
    : m_width(width),
      m_height(height),
      m_bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3)
{
}

Picture Picture::load(std::string const& file)
{
    Surface const loaded(IMG_Load(file.c_str()), SDL_FreeSurface);
    if (!loaded)
    {
        return {0, 0};
    }
    Surface const rgb(SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_RGB24, 0), SDL_FreeSurface);
    Picture picture(rgb->w, rgb->h);
    for (int y = 0; y < rgb->h; ++y)
    {
        std::memcpy(picture.row(y), static_cast<std::uint8_t const*>(rgb->pixels) + y * rgb->pitch,
                    static_cast<std::size_t>(rgb->w) * 3);
    }
    return picture;
}

bool Picture::save(std::string const& file) const
{
    Surface const surface(SDL_CreateRGBSurfaceWithFormatFrom(const_cast<std::uint8_t*>(m_bytes.data()),
                                                             m_width, m_height, 24, m_width * 3,
                                                             SDL_PIXELFORMAT_RGB24),
                          SDL_FreeSurface);
    return surface && IMG_SavePNG(surface.get(), file.c_str()) == 0;
}

testing::AssertionResult LooksLike(Picture const& picture, std::string const& name)
{
    std::string const file = GoldenFile(name);
    if (std::getenv("QUARROW_UPDATE_GOLDEN") != nullptr)
    {
        return picture.save(file) ? testing::AssertionSuccess()
                                  : testing::AssertionFailure() << "cannot write " << file;
    }
    Picture const golden = Picture::load(file);
    if (golden.width() != picture.width() || golden.height() != picture.height())
    {
        return testing::AssertionFailure() << file << " is missing or of another size";
    }
    Difference const difference = Compare(picture, golden);
    if (difference.mean <= kMeanTolerance && difference.farShare <= kFarPixelTolerance)
    {
        return testing::AssertionSuccess();
    }
    picture.save(name + "-seen.png");
    return testing::AssertionFailure()
           << name << " differs by " << difference.mean << " of 255 on average, "
           << difference.farShare * 100.0 << " % of its pixels strongly; see " << name << "-seen.png";
}
