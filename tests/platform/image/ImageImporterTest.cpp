// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Pictures of every type, written here by SDL_image, and files that are none.
#include "platform/image/ImageImporter.h"

#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <SDL_image.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <thread>

using namespace testing;
using platform::ImageImporter;
using platform::PixelBuffer;

namespace
{

constexpr int kWidth = 37;
constexpr int kHeight = 23;

using Pixels = std::vector<std::uint32_t>;
using Surface = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

std::array<int, 4> ColorAt(int x, int y) // red, green, blue, alpha
{
    return {x * 255 / (kWidth - 1), y * 255 / (kHeight - 1), 255 - x * 4, x < kWidth / 2 ? 255 : 100};
}

int GreyAt(int x, int y)
{
    return (x * 5 + y * 3) & 255;
}

// paint: the colour at (x, y), 0xAARRGGBB.
template <typename Paint>
Surface Painted(Uint32 format, Paint paint)
{
    Surface const wide(SDL_CreateRGBSurfaceWithFormat(0, kWidth, kHeight, 32, SDL_PIXELFORMAT_ARGB8888),
                       SDL_FreeSurface);
    for (int y = 0; y < kHeight; ++y)
    {
        for (int x = 0; x < kWidth; ++x)
        {
            static_cast<std::uint32_t*>(wide->pixels)[y * kWidth + x] = paint(x, y);
        }
    }
    return {SDL_ConvertSurfaceFormat(wide.get(), format, 0), SDL_FreeSurface};
}

Surface Coloured(Uint32 format)
{
    return Painted(format,
                   [](int x, int y)
                   {
                       auto const [red, green, blue, alpha] = ColorAt(x, y);
                       return static_cast<std::uint32_t>(alpha << 24 | red << 16 | green << 8 | blue);
                   });
}

// The bytes that one of SDL's writers makes of a surface.
template <typename Writer>
std::string Written(Writer write)
{
    std::string bytes(1 << 20, '\0');
    SDL_RWops* const stream = SDL_RWFromMem(bytes.data(), static_cast<int>(bytes.size()));
    EXPECT_EQ(write(stream), 0) << SDL_GetError();
    bytes.resize(static_cast<std::size_t>(SDL_RWtell(stream)));
    SDL_RWclose(stream);
    return bytes;
}

std::string Png(Uint32 format = SDL_PIXELFORMAT_RGB24)
{
    return Written([&](SDL_RWops* stream) { return IMG_SavePNG_RW(Coloured(format).get(), stream, 0); });
}

std::string Bmp()
{
    return Written([](SDL_RWops* stream)
                   { return SDL_SaveBMP_RW(Coloured(SDL_PIXELFORMAT_BGR24).get(), stream, 0); });
}

std::string GreyJpeg()
{
    Surface const grey =
        Painted(SDL_PIXELFORMAT_RGB24, [](int x, int y)
                { return 0xFF000000U | static_cast<std::uint32_t>(GreyAt(x, y)) * 0x010101U; });
    return Written([&](SDL_RWops* stream) { return IMG_SaveJPG_RW(grey.get(), stream, 0, 95); });
}

// A picture whose pixel at (x, y) has colour x of its palette.
std::string PalettePng()
{
    Surface const surface(SDL_CreateRGBSurfaceWithFormat(0, kWidth, kHeight, 8, SDL_PIXELFORMAT_INDEX8),
                          SDL_FreeSurface);
    std::array<SDL_Color, 256> colors{};
    for (std::size_t i = 0; i < colors.size(); ++i)
    {
        colors[i] = {static_cast<Uint8>(i * 3), static_cast<Uint8>(i * 5), static_cast<Uint8>(i * 7), 255};
    }
    SDL_SetPaletteColors(surface->format->palette, colors.data(), 0, 256);
    for (int y = 0; y < kHeight; ++y)
    {
        for (int x = 0; x < kWidth; ++x)
        {
            static_cast<std::uint8_t*>(surface->pixels)[y * surface->pitch + x] =
                static_cast<std::uint8_t>(x);
        }
    }
    return Written([&](SDL_RWops* stream) { return IMG_SavePNG_RW(surface.get(), stream, 0); });
}

constexpr platform::FourCharCode Code(char const (&text)[5])
{
    return (static_cast<std::uint32_t>(text[0]) << 24U) | (static_cast<std::uint32_t>(text[1]) << 16U) |
           (static_cast<std::uint32_t>(text[2]) << 8U) | static_cast<std::uint32_t>(text[3]);
}

class ImageImporterTest : public Test
{
protected:
    ~ImageImporterTest() override { std::filesystem::remove(m_file); }

    std::filesystem::path file(std::string const& bytes)
    {
        std::ofstream(m_file, std::ios::binary) << bytes;
        return m_file;
    }

    static bool setData(ImageImporter& importer, std::string const& bytes)
    {
        return importer.setData(std::as_bytes(std::span(bytes)));
    }

    static std::unique_ptr<ImageImporter> importerOf(std::string const& png)
    {
        auto importer = ImageImporter::forType(Code("PNGf"));
        EXPECT_TRUE(setData(*importer, png));
        return importer;
    }

    // Decoded at its own size.
    Pixels decode(std::string const& bytes)
    {
        auto const importer = ImageImporter::forFile(file(bytes));
        if (!importer || !setData(*importer, bytes))
        {
            return {};
        }
        Pixels pixels(
            static_cast<std::size_t>(importer->description().width * importer->description().height));
        importer->setTarget(
            {pixels.data(), importer->description().width, importer->description().height, 32});
        EXPECT_TRUE(importer->draw());
        return pixels;
    }

    static std::uint32_t at(Pixels const& pixels, int x, int y)
    {
        return pixels[static_cast<std::size_t>(y * kWidth + x)];
    }

    std::filesystem::path const m_file =
        std::filesystem::temp_directory_path() / ("quarrow-picture-" + std::to_string(getpid()));
};

int Channel(std::uint32_t pixel, int shift)
{
    return static_cast<int>((pixel >> shift) & 255U);
}

void ExpectPixel(std::uint32_t pixel, int red, int green, int blue, int alpha, int tolerance)
{
    EXPECT_NEAR(Channel(pixel, 16), red, tolerance);
    EXPECT_NEAR(Channel(pixel, 8), green, tolerance);
    EXPECT_NEAR(Channel(pixel, 0), blue, tolerance);
    EXPECT_NEAR(Channel(pixel, 24), alpha, tolerance);
}

} // namespace

TEST_F(ImageImporterTest, TellsTypeSizeAndDepth)
{
    struct Case
    {
        std::string bytes;
        platform::FourCharCode type;
        int depth;
    };
    for (Case const& expected :
         {Case{Png(), Code("PNGf"), 24}, Case{Png(SDL_PIXELFORMAT_RGBA32), Code("PNGf"), 32},
          Case{PalettePng(), Code("PNGf"), 8}, Case{GreyJpeg(), Code("JPEG"), 24},
          Case{Bmp(), Code("BMPf"), 24}})
    {
        auto const importer = ImageImporter::forFile(file(expected.bytes));
        ASSERT_TRUE(importer);
        EXPECT_EQ(importer->type(), expected.type);
        EXPECT_EQ(importer->description().width, kWidth);
        EXPECT_EQ(importer->description().height, kHeight);
        EXPECT_EQ(importer->description().depth, expected.depth);
    }
}

TEST_F(ImageImporterTest, LosslessPicturesAreExact)
{
    for (std::string const& bytes : {Png(), Bmp()})
    {
        Pixels const pixels = decode(bytes);
        ASSERT_FALSE(pixels.empty());
        for (auto const& [x, y] : {std::pair{0, 0}, {36, 0}, {5, 22}, {20, 11}})
        {
            auto const color = ColorAt(x, y);
            ExpectPixel(at(pixels, x, y), color[0], color[1], color[2], 255, 0);
        }
    }
}

TEST_F(ImageImporterTest, AlphaIsPremultiplied)
{
    Pixels const pixels = decode(Png(SDL_PIXELFORMAT_RGBA32));
    ASSERT_FALSE(pixels.empty());
    auto const color = ColorAt(30, 11);
    ExpectPixel(at(pixels, 30, 11), color[0] * 100 / 255, color[1] * 100 / 255, color[2] * 100 / 255, 100, 1);
    auto const opaque = ColorAt(3, 11);
    ExpectPixel(at(pixels, 3, 11), opaque[0], opaque[1], opaque[2], 255, 0);
}

TEST_F(ImageImporterTest, PaletteGivesItsColours)
{
    Pixels const pixels = decode(PalettePng());
    ASSERT_FALSE(pixels.empty());
    EXPECT_EQ(at(pixels, 7, 3), 0xFF000000U | 7U * 0x030507U);
}

TEST_F(ImageImporterTest, JpegIsClose)
{
    Pixels const pixels = decode(GreyJpeg());
    ASSERT_FALSE(pixels.empty());
    ExpectPixel(at(pixels, 20, 11), GreyAt(20, 11), GreyAt(20, 11), GreyAt(20, 11), 255, 6);
}

TEST_F(ImageImporterTest, FlipAtTheSameSizeIsExact)
{
    std::string const bytes = Png(SDL_PIXELFORMAT_RGBA32);
    Pixels const upright = decode(bytes);
    auto const importer = importerOf(bytes);
    Pixels flipped(upright.size());
    importer->setTarget({flipped.data(), kWidth, kHeight, 32});
    importer->setMatrix({1.0, -1.0, 0.0, kHeight});
    EXPECT_TRUE(importer->draw());
    for (int y = 0; y < kHeight; ++y)
    {
        for (int x = 0; x < kWidth; ++x)
        {
            ASSERT_EQ(at(flipped, x, y), at(upright, x, kHeight - 1 - y));
        }
    }
}

TEST_F(ImageImporterTest, StretchedPictureReachesEveryEdgeInFull)
{
    std::string const bytes = Png();
    auto const importer = importerOf(bytes);
    Pixels stretched(64 * 32, 0);
    importer->setTarget({stretched.data(), 64, 32, 32});
    importer->setMatrix({64.0 / kWidth, -32.0 / kHeight, 0.0, 32.0});
    EXPECT_TRUE(importer->draw());
    for (std::uint32_t const pixel : stretched)
    {
        ASSERT_EQ(pixel >> 24U, 255U);
    }
    auto const bottomLeft = ColorAt(0, kHeight - 1); // in the first row of a flipped picture
    ExpectPixel(stretched[0], bottomLeft[0], bottomLeft[1], bottomLeft[2], 255, 6);
}

TEST_F(ImageImporterTest, UncoveredTargetKeepsWhatWasThere)
{
    auto const importer = importerOf(Png());
    Pixels target(100 * 50, 0xFF123456U);
    importer->setTarget({target.data(), 100, 50, 32});
    importer->setMatrix({1.0, 1.0, 10.0, 20.0});
    EXPECT_TRUE(importer->draw());
    EXPECT_EQ(target[19 * 100 + 15], 0xFF123456U);
    EXPECT_EQ(target[25 * 100 + 9], 0xFF123456U);
    EXPECT_EQ(target[25 * 100 + 47], 0xFF123456U);
    EXPECT_NE(target[20 * 100 + 10], 0xFF123456U);
}

TEST_F(ImageImporterTest, TargetOf16BitsTakesFiveBitsAColour)
{
    auto const importer = importerOf(Png());
    std::vector<std::uint16_t> target(kWidth * kHeight, 0);
    ASSERT_TRUE(importer->setTarget({target.data(), kWidth, kHeight, 16}));
    EXPECT_TRUE(importer->draw());
    auto const color = ColorAt(20, 11);
    int const pixel = target[11 * kWidth + 20];
    EXPECT_EQ(pixel >> 15, 1);
    EXPECT_NEAR((pixel >> 10) & 31, color[0] * 31 / 255, 1);
    EXPECT_NEAR((pixel >> 5) & 31, color[1] * 31 / 255, 1);
    EXPECT_NEAR(pixel & 31, color[2] * 31 / 255, 1);
}

TEST_F(ImageImporterTest, WithoutDataOrTargetNothingIsDrawn)
{
    auto const importer = ImageImporter::forType(Code("PNGf"));
    Pixels target(4, 7);
    EXPECT_TRUE(importer->setTarget({target.data(), 2, 2, 32}));
    EXPECT_FALSE(importer->draw());
    EXPECT_THAT(target, Each(7U));

    auto const second = ImageImporter::forType(Code("PNGf"));
    EXPECT_FALSE(second->setTarget({nullptr, 2, 2, 32}));
    ASSERT_TRUE(setData(*second, Png()));
    EXPECT_FALSE(second->draw());
}

TEST_F(ImageImporterTest, DataOfAnotherTypeAreRefused)
{
    auto const importer = ImageImporter::forType(Code("JPEG"));
    ASSERT_TRUE(importer);
    EXPECT_FALSE(setData(*importer, Png()));
    EXPECT_FALSE(ImageImporter::forType(Code("MooV")));
}

TEST_F(ImageImporterTest, FilesThatAreNoPicturesAreRefused)
{
    CapturedLog log;
    for (std::string const& bytes : {std::string(), std::string(5000, 'x'), Bmp().substr(0, 1000)})
    {
        EXPECT_FALSE(ImageImporter::forFile(file(bytes))) << bytes.size();
    }
    EXPECT_FALSE(ImageImporter::forFile("/no/such/file"));
    EXPECT_FALSE(ImageImporter::forFile(std::filesystem::temp_directory_path()));
    EXPECT_THAT(log.lines(), IsEmpty());
}

// Seen by the leak sanitizer only.
TEST_F(ImageImporterTest, AThreadThatMeetsNoPictureLeavesNothingBehind)
{
    auto const noise = file("no picture");
    std::thread([&noise] { EXPECT_FALSE(ImageImporter::forFile(noise)); }).join();
}
