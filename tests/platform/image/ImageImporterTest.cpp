// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Pictures of every type, written here through libavcodec's encoders, and files that are none.
#include "platform/image/ImageImporter.h"

#include "platform/sound/TestMedia.h"

#include <gmock/gmock.h>

#include <array>
#include <cstring>

using namespace testing;
using namespace testmedia;
using platform::ImageImporter;
using platform::PixelBuffer;

namespace
{

constexpr int kWidth = 37;
constexpr int kHeight = 23;

using Pixels = std::vector<std::uint32_t>;

std::array<int, 4> ColorAt(int x, int y) // red, green, blue, alpha
{
    return {x * 255 / (kWidth - 1), y * 255 / (kHeight - 1), 255 - x * 4, x < kWidth / 2 ? 255 : 100};
}

int GreyAt(int x, int y)
{
    return (x * 5 + y * 3) & 255;
}

void FillPixel(AVFrame& frame, int x, int y)
{
    auto const color = ColorAt(x, y);
    std::uint8_t* const row = frame.data[0] + y * frame.linesize[0];
    auto const put = [&](int bytes, std::array<int, 4> order)
    {
        for (int i = 0; i < bytes; ++i)
        {
            row[x * bytes + i] = static_cast<std::uint8_t>(
                color[static_cast<std::size_t>(order[static_cast<std::size_t>(i)])]);
        }
    };
    switch (frame.format)
    {
    case AV_PIX_FMT_RGB24:
        put(3, {0, 1, 2, 3});
        break;
    case AV_PIX_FMT_BGR24:
        put(3, {2, 1, 0, 3});
        break;
    case AV_PIX_FMT_RGBA:
        put(4, {0, 1, 2, 3});
        break;
    case AV_PIX_FMT_PAL8:
        row[x] = static_cast<std::uint8_t>(x);
        break;
    default: // grey, or full-range YUV without colour
        row[x] = static_cast<std::uint8_t>(GreyAt(x, y));
        break;
    }
}

// The bytes of one picture.
std::string Encode(AVCodecID id, AVPixelFormat format)
{
    AVCodecContext* context = avcodec_alloc_context3(avcodec_find_encoder(id));
    context->width = kWidth;
    context->height = kHeight;
    context->pix_fmt = format;
    context->time_base = {1, 1};
    context->flags |= AV_CODEC_FLAG_QSCALE;
    context->global_quality = FF_QP2LAMBDA;
    avcodec_open2(context, nullptr, nullptr);
    AVFrame* frame = av_frame_alloc();
    frame->format = format;
    frame->width = kWidth;
    frame->height = kHeight;
    frame->quality = FF_QP2LAMBDA;
    av_frame_get_buffer(frame, 0);
    for (int plane = 1; plane < 3 && format == AV_PIX_FMT_YUVJ420P; ++plane)
    {
        std::memset(frame->data[plane], 128,
                    static_cast<std::size_t>(frame->linesize[plane] * ((kHeight + 1) / 2)));
    }
    if (format == AV_PIX_FMT_PAL8)
    {
        auto* const palette = reinterpret_cast<std::uint32_t*>(frame->data[1]);
        for (std::uint32_t i = 0; i < 256; ++i)
        {
            palette[i] = 0xFF000000U | (i * 0x030507U & 0xFFFFFFU);
        }
    }
    for (int y = 0; y < kHeight; ++y)
    {
        for (int x = 0; x < kWidth; ++x)
        {
            FillPixel(*frame, x, y);
        }
    }
    avcodec_send_frame(context, frame);
    avcodec_send_frame(context, nullptr);
    AVPacket* packet = av_packet_alloc();
    std::string bytes;
    while (avcodec_receive_packet(context, packet) == 0)
    {
        bytes.append(reinterpret_cast<char const*>(packet->data), static_cast<std::size_t>(packet->size));
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    av_frame_free(&frame);
    avcodec_free_context(&context);
    return bytes;
}

constexpr platform::FourCharCode Code(char const (&text)[5])
{
    return (static_cast<std::uint32_t>(text[0]) << 24U) | (static_cast<std::uint32_t>(text[1]) << 16U) |
           (static_cast<std::uint32_t>(text[2]) << 8U) | static_cast<std::uint32_t>(text[3]);
}

class ImageImporterTest : public Test
{
protected:
    std::filesystem::path file(std::string const& bytes, char const* name = "picture")
    {
        WriteBytes(m_folder / name, bytes);
        return m_folder / name;
    }

    static bool setData(ImageImporter& importer, std::string const& bytes)
    {
        return importer.setData(std::as_bytes(std::span(bytes)));
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

    Folder m_folder;
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

// A picture of one colour in four inks, as printing programs store them: 255 is no ink.
std::string FourInkJpeg()
{
    return ReadBytes(std::filesystem::path(QUARROW_SOURCE_DIR) / "tests/data/four-inks.jpg");
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
    for (Case const& expected : {Case{Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24), Code("PNGf"), 24},
                                 Case{Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGBA), Code("PNGf"), 32},
                                 Case{Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_PAL8), Code("PNGf"), 8},
                                 Case{Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_GRAY8), Code("PNGf"), 8},
                                 Case{Encode(AV_CODEC_ID_MJPEG, AV_PIX_FMT_YUVJ420P), Code("JPEG"), 24},
                                 Case{Encode(AV_CODEC_ID_BMP, AV_PIX_FMT_BGR24), Code("BMPf"), 24}})
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
    for (std::string const& bytes :
         {Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24), Encode(AV_CODEC_ID_BMP, AV_PIX_FMT_BGR24)})
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
    Pixels const pixels = decode(Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGBA));
    ASSERT_FALSE(pixels.empty());
    auto const color = ColorAt(30, 11);
    ExpectPixel(at(pixels, 30, 11), color[0] * 100 / 255, color[1] * 100 / 255, color[2] * 100 / 255, 100, 1);
    auto const opaque = ColorAt(3, 11);
    ExpectPixel(at(pixels, 3, 11), opaque[0], opaque[1], opaque[2], 255, 0);
}

TEST_F(ImageImporterTest, PaletteGivesItsColours)
{
    Pixels const pixels = decode(Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_PAL8));
    ASSERT_FALSE(pixels.empty());
    EXPECT_EQ(at(pixels, 7, 3), 0xFF000000U | (7U * 0x030507U));
}

TEST_F(ImageImporterTest, GreyHasThreeEqualChannels)
{
    Pixels const pixels = decode(Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_GRAY8));
    ASSERT_FALSE(pixels.empty());
    ExpectPixel(at(pixels, 20, 11), GreyAt(20, 11), GreyAt(20, 11), GreyAt(20, 11), 255, 0);
}

TEST_F(ImageImporterTest, JpegIsClose)
{
    Pixels const pixels = decode(Encode(AV_CODEC_ID_MJPEG, AV_PIX_FMT_YUVJ420P));
    ASSERT_FALSE(pixels.empty());
    ExpectPixel(at(pixels, 20, 11), GreyAt(20, 11), GreyAt(20, 11), GreyAt(20, 11), 255, 6);
}

// Cyan, magenta, yellow and black let through 200, 100, 50 and 220 of 255.
TEST_F(ImageImporterTest, FourInkJpegGivesTheColourOfItsPrint)
{
    std::string const bytes = FourInkJpeg();
    auto const importer = ImageImporter::forFile(file(bytes));
    ASSERT_TRUE(importer);
    EXPECT_EQ(importer->description().depth, 32);
    Pixels const pixels = decode(bytes);
    ASSERT_FALSE(pixels.empty());
    ExpectPixel(pixels[17], 200 * 220 / 255, 100 * 220 / 255, 50 * 220 / 255, 255, 2);
}

// A camera's note that the picture is to be turned a quarter: textures take pictures as they are stored.
TEST_F(ImageImporterTest, OrientationNoteTurnsNothing)
{
    using namespace std::string_literals;
    std::string const jpeg = Encode(AV_CODEC_ID_MJPEG, AV_PIX_FMT_YUVJ420P);
    std::string const note = "Exif\0\0II*\0\x08\0\0\0"
                             "\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0"
                             "\0\0\0\0"s;
    std::string const length{'\0', static_cast<char>(note.size() + 2)};
    std::string const turned = jpeg.substr(0, 2) + "\xFF\xE1" + length + note + jpeg.substr(2);
    auto const importer = ImageImporter::forFile(file(turned));
    ASSERT_TRUE(importer);
    EXPECT_EQ(importer->description().width, kWidth);
    EXPECT_EQ(importer->description().height, kHeight);
    EXPECT_EQ(decode(turned), decode(jpeg));
}

TEST_F(ImageImporterTest, FlipAtTheSameSizeIsExact)
{
    std::string const bytes = Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGBA);
    Pixels const upright = decode(bytes);
    auto const importer = ImageImporter::forType(Code("PNGf"));
    ASSERT_TRUE(setData(*importer, bytes));
    Pixels flipped(upright.size());
    importer->setTarget({flipped.data(), kWidth, kHeight, 32});
    importer->setMatrix(1.0, -1.0, 0.0, kHeight);
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
    std::string const bytes = Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24);
    auto const importer = ImageImporter::forType(Code("PNGf"));
    ASSERT_TRUE(setData(*importer, bytes));
    Pixels stretched(64 * 32, 0);
    importer->setTarget({stretched.data(), 64, 32, 32});
    importer->setMatrix(64.0 / kWidth, -32.0 / kHeight, 0.0, 32.0);
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
    auto const importer = ImageImporter::forType(Code("PNGf"));
    ASSERT_TRUE(setData(*importer, Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24)));
    Pixels target(100 * 50, 0xFF123456U);
    importer->setTarget({target.data(), 100, 50, 32});
    importer->setMatrix(1.0, 1.0, 10.0, 20.0);
    EXPECT_TRUE(importer->draw());
    EXPECT_EQ(target[19 * 100 + 15], 0xFF123456U);
    EXPECT_EQ(target[25 * 100 + 9], 0xFF123456U);
    EXPECT_EQ(target[25 * 100 + 47], 0xFF123456U);
    EXPECT_NE(target[20 * 100 + 10], 0xFF123456U);
}

TEST_F(ImageImporterTest, TargetOf16BitsTakesFiveBitsAColour)
{
    auto const importer = ImageImporter::forType(Code("PNGf"));
    ASSERT_TRUE(setData(*importer, Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24)));
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
    ASSERT_TRUE(setData(*second, Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24)));
    EXPECT_FALSE(second->draw());
}

TEST_F(ImageImporterTest, DataOfAnotherTypeAreRefused)
{
    auto const importer = ImageImporter::forType(Code("JPEG"));
    ASSERT_TRUE(importer);
    EXPECT_FALSE(setData(*importer, Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24)));
    EXPECT_FALSE(ImageImporter::forType(Code("MooV")));
}

TEST_F(ImageImporterTest, BrokenFilesAreNoPicturesAndSayNothing)
{
    std::string const png = Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24);
    std::string const jpeg = Encode(AV_CODEC_ID_MJPEG, AV_PIX_FMT_YUVJ420P);
    std::string badPng = png;
    badPng[png.size() / 2] = static_cast<char>(png[png.size() / 2] ^ 0x55);

    testing::internal::CaptureStderr();
    for (std::string const& bytes :
         {std::string(), std::string(5000, 'x'), png.substr(0, 20), png.substr(0, png.size() / 2),
          jpeg.substr(0, jpeg.size() / 2), jpeg.substr(0, jpeg.size() - 20), badPng,
          std::string("II*\0\x08\0\0\0\x03\0garbage", 17)})
    {
        auto const importer = ImageImporter::forFile(file(bytes));
        EXPECT_FALSE(importer && setData(*importer, bytes))
            << bytes.size() << " of " << png.size() << ", " << jpeg.size();
    }
    EXPECT_FALSE(ImageImporter::forFile(m_folder / "missing"));
    EXPECT_FALSE(ImageImporter::forFile(m_folder / "."));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// Its last chunk never ends; a decoder that reads on finds the same bytes again and again.
TEST_F(ImageImporterTest, PictureThatEndsWithinAChunkComesToAnEnd)
{
    std::string const bytes =
        ReadBytes(std::filesystem::path(QUARROW_SOURCE_DIR) / "fuzz/corpus/image/cut-off.png");
    ASSERT_FALSE(bytes.empty());
    auto const importer = ImageImporter::forType(Code("PNGf"));
    EXPECT_FALSE(setData(*importer, bytes));
}

TEST_F(ImageImporterTest, AbsurdSizesAreRefusedFromTheHeader)
{
    std::string huge = Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24);
    huge.replace(16, 8, std::string("\0\0\x75\x30\0\0\x75\x30", 8)); // 30,000 each way
    EXPECT_FALSE(ImageImporter::forFile(file(huge)));
    auto const importer = ImageImporter::forType(Code("PNGf"));
    EXPECT_FALSE(setData(*importer, huge));

    std::filesystem::path const sparse = file(Encode(AV_CODEC_ID_PNG, AV_PIX_FMT_RGB24), "sparse");
    std::filesystem::resize_file(sparse, std::uintmax_t{2} << 30U);
    EXPECT_FALSE(ImageImporter::forFile(sparse));
}
