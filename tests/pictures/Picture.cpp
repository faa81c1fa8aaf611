// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "pictures/Picture.h"

#include <SDL.h>
#include <SDL_image.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace
{

constexpr double kMeanTolerance = 1.5;      // of 255
constexpr int kPixelTolerance = 40;         // of 255
constexpr double kFarPixelTolerance = 0.01; // share of pixels
constexpr int kLit = 60;                    // of 255, in any colour
constexpr double kFarLitTolerance = 0.1;    // share of lit pixels in a subject

using Surface = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

std::string GoldenFile(std::string const& name)
{
    return std::string(QUARROW_SOURCE_DIR "/tests/pictures/golden/") + name + ".png";
}

struct Difference
{
    double sum = 0.0;       // of all colours, of 255 each
    double farPixels = 0.0; // beyond kPixelTolerance
    double lit = 0.0;
    double farLit = 0.0;
};

void AddPixel(std::uint8_t const* a, std::uint8_t const* b, Difference& difference)
{
    int most = 0;
    int brightest = 0;
    for (int c = 0; c < 3; ++c)
    {
        int const apart = std::abs(a[c] - b[c]);
        difference.sum += apart;
        most = std::max(most, apart);
        brightest = std::max<int>({brightest, a[c], b[c]});
    }
    bool const isFar = most > kPixelTolerance;
    bool const isLit = brightest > kLit;
    difference.farPixels += isFar ? 1.0 : 0.0;
    difference.lit += isLit ? 1.0 : 0.0;
    difference.farLit += isFar && isLit ? 1.0 : 0.0;
}

Difference Compare(Picture const& a, Picture const& b, PictureArea const& area)
{
    Difference difference;
    for (int y = area.y; y < area.y + area.height; ++y)
    {
        for (int x = area.x; x < area.x + area.width; ++x)
        {
            AddPixel(a.row(y) + x * 3, b.row(y) + x * 3, difference);
        }
    }
    return difference;
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

testing::AssertionResult IsLike(Picture const& picture, std::string const& name,
                                std::vector<PictureArea> subjects)
{
    Picture const golden = Picture::load(GoldenFile(name));
    if (golden.width() != picture.width() || golden.height() != picture.height())
    {
        return testing::AssertionFailure() << GoldenFile(name) << " is missing or of another size";
    }
    PictureArea const whole{0, 0, picture.width(), picture.height()};
    Difference const all = Compare(picture, golden, whole);
    double const pixels = static_cast<double>(whole.width) * whole.height;
    double const mean = all.sum / (pixels * 3.0);
    double const farShare = all.farPixels / pixels;
    double farLitShare = 0.0;
    subjects = subjects.empty() ? std::vector{whole} : subjects;
    for (PictureArea const& subject : subjects)
    {
        Difference const part = Compare(picture, golden, subject);
        farLitShare = std::max(farLitShare, part.farLit / std::max(part.lit, 1.0));
    }
    bool const isLike =
        mean <= kMeanTolerance && farShare <= kFarPixelTolerance && farLitShare <= kFarLitTolerance;
    return (isLike ? testing::AssertionSuccess() : testing::AssertionFailure())
           << name << " differs by " << mean << " of 255 on average, " << farShare * 100.0
           << " % of its pixels strongly, and " << farLitShare * 100.0
           << " % of the lit pixels of what it is about";
}

testing::AssertionResult LooksLike(Picture const& picture, std::string const& name,
                                   std::vector<PictureArea> const& subjects)
{
    if (std::getenv("QUARROW_UPDATE_GOLDEN") != nullptr)
    {
        return picture.save(GoldenFile(name)) ? testing::AssertionSuccess()
                                              : testing::AssertionFailure() << "cannot write " << name;
    }
    testing::AssertionResult result = IsLike(picture, name, subjects);
    if (!result)
    {
        picture.save(name + "-seen.png");
        result << "; see " << name << "-seen.png";
    }
    return result;
}
