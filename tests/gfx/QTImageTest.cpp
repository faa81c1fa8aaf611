// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/QTImage.h"

#include "support/CapturedLog.h"
#include "support/TestPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <fstream>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr TestPicture::Colour kRed = 0xFFFF0000;
constexpr TestPicture::Colour kGreen = 0xFF00FF00;
constexpr TestPicture::Colour kBlue = 0xFF0000FF;

using Bgra = std::array<int, 4>;

Bgra PixelOf(GBuffer const& buffer, int x, int row)
{
    auto const* const bytes = static_cast<std::uint8_t const*>(buffer.GetPixels()) +
                              4 * (static_cast<std::ptrdiff_t>(buffer.GetWidth()) * row + x);
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

std::uint16_t PixelOf16(GBuffer const& buffer, int x, int row)
{
    return static_cast<std::uint16_t const*>(
        buffer.GetPixels())[static_cast<std::ptrdiff_t>(buffer.GetWidth()) * row + x];
}

struct SizeCase
{
    int imageWidth, imageHeight, bufferWidth, bufferHeight;
};

class QTImageSizes : public testing::TestWithParam<SizeCase>
{
};

TEST_P(QTImageSizes, BuffersHaveTheNextPowersOfTwoUpTo1024)
{
    SizeCase const& sizes = GetParam();
    TestPicture const picture(sizes.imageWidth, sizes.imageHeight, Plain(kRed));
    QTImage image;
    ASSERT_TRUE(image.SetImageFromFSSpec(picture.file()));
    ASSERT_TRUE(image.CreateImageWithBitdepth(32));
    EXPECT_EQ(image.GetImageWidth(), static_cast<float>(sizes.imageWidth));
    EXPECT_EQ(image.GetImageHeight(), static_cast<float>(sizes.imageHeight));
    EXPECT_EQ(image.GetWidth(), static_cast<float>(sizes.bufferWidth));
    EXPECT_EQ(image.GetHeight(), static_cast<float>(sizes.bufferHeight));
    EXPECT_TRUE(image.WasDrawn());
    // The picture fills the whole buffer.
    for (int const x : {0, sizes.bufferWidth - 1})
    {
        for (int const row : {0, sizes.bufferHeight - 1})
        {
            EXPECT_THAT(PixelOf(image, x, row), ElementsAre(0, 0, 255, 255)) << x << ", " << row;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, QTImageSizes,
                         testing::Values(SizeCase{128, 128, 128, 128}, SizeCase{100, 300, 128, 512},
                                         SizeCase{2000, 2000, 1024, 1024}, SizeCase{1, 1, 1, 1},
                                         SizeCase{3, 1025, 4, 1024}));

// Four by four, a colour for each quarter: top left red, top right green, bottom left blue, bottom right half
// clear.
TestPicture::Colour Quarters(int x, int y)
{
    if (y < 2)
    {
        return x < 2 ? kRed : kGreen;
    }
    return x < 2 ? kBlue : 0x80FFFFFF;
}

class QTImageOfQuarters : public testing::Test
{
protected:
    QTImageOfQuarters() { EXPECT_TRUE(m_image.SetImageFromFSSpec(m_picture.file())); }

    TestPicture const m_picture{4, 4, Quarters};
    QTImage m_image;
};

TEST_F(QTImageOfQuarters, Row0IsTheBottomOfThePictureInBgra)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    EXPECT_THAT(PixelOf(m_image, 0, 0), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(PixelOf(m_image, 3, 0), ElementsAre(128, 128, 128, 128)) << "premultiplied";
    EXPECT_THAT(PixelOf(m_image, 0, 3), ElementsAre(0, 0, 255, 255));
    EXPECT_THAT(PixelOf(m_image, 3, 3), ElementsAre(0, 255, 0, 255));
    EXPECT_THAT(PixelOf(m_image, 0, 1), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(PixelOf(m_image, 0, 2), ElementsAre(0, 0, 255, 255));
}

TEST(QTImage, AStretchedPictureIsUpsideDownToo)
{
    TestPicture const picture(100, 300, [](int, int y) { return y < 150 ? kRed : kBlue; });
    QTImage image;
    ASSERT_TRUE(image.SetImageFromFSSpec(picture.file()));
    ASSERT_TRUE(image.CreateImageWithBitdepth(32));
    EXPECT_THAT(PixelOf(image, 64, 0), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(PixelOf(image, 64, 250), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(PixelOf(image, 64, 262), ElementsAre(0, 0, 255, 255));
    EXPECT_THAT(PixelOf(image, 64, 511), ElementsAre(0, 0, 255, 255));
}

TEST_F(QTImageOfQuarters, SixteenBitsAre1555)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(16));
    EXPECT_EQ(m_image.GetBitDepth(), 16);
    EXPECT_EQ(PixelOf16(m_image, 0, 0), 0x801F);
    EXPECT_EQ(PixelOf16(m_image, 0, 3), 0xFC00);
    EXPECT_EQ(PixelOf16(m_image, 3, 3), 0x83E0);
}

TEST_F(QTImageOfQuarters, TellsTypeAndDepthOfTheFile)
{
    EXPECT_EQ(m_image.GetType(), 0x424D5066U); // 'BMPf'
    EXPECT_EQ(m_image.GetImageDepth(), 32);
}

TEST_F(QTImageOfQuarters, TheSameDepthReusesTheBuffer)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    void const* const first = m_image.GetPixels();
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    EXPECT_EQ(m_image.GetPixels(), first);
    EXPECT_TRUE(m_image.WasDrawn());
}

TEST_F(QTImageOfQuarters, AnotherDepthReplacesTheBuffer)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(16));
    EXPECT_EQ(m_image.GetBitDepth(), 16);
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    EXPECT_EQ(m_image.GetBitDepth(), 32);
    EXPECT_THAT(PixelOf(m_image, 0, 0), ElementsAre(255, 0, 0, 255));
}

TEST(QTImage, AnotherFileReplacesThePicture)
{
    TestPicture const small(4, 4, Quarters);
    TestPicture const large(30, 10, Plain(kGreen));
    QTImage image;
    ASSERT_TRUE(image.SetImageFromFSSpec(small.file()));
    ASSERT_TRUE(image.CreateImageWithBitdepth(32));
    ASSERT_TRUE(image.SetImageFromFSSpec(large.file()));
    EXPECT_EQ(image.GetPixels(), nullptr);
    EXPECT_FALSE(image.WasDrawn());
    ASSERT_TRUE(image.CreateImageWithBitdepth(32));
    EXPECT_EQ(image.GetWidth(), 32.0F);
    EXPECT_EQ(image.GetHeight(), 16.0F);
    EXPECT_THAT(PixelOf(image, 20, 8), ElementsAre(0, 255, 0, 255));
}

TEST_F(QTImageOfQuarters, ResetLetsGoOfTheBuffer)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    m_image.Reset();
    EXPECT_EQ(m_image.GetPixels(), nullptr);
    EXPECT_FALSE(m_image.WasDrawn());
}

TEST_F(QTImageOfQuarters, ABufferThatWasReleasedIsMadeAnew)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    m_image.ReleaseImageBuffer();
    EXPECT_FALSE(m_image.CreateCGContext());
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    EXPECT_TRUE(m_image.WasDrawn());
    EXPECT_THAT(PixelOf(m_image, 0, 0), ElementsAre(255, 0, 0, 255));
}

TEST(QTImage, ThePictureOfARockIsFoundByName)
{
    auto const image = QTImage::imageWithName("roid-128.jpg");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetType(), 0x4A504547U); // 'JPEG'
    EXPECT_EQ(image->GetImageDepth(), 24);
    ASSERT_TRUE(image->CreateImageWithBitdepth(32));
    EXPECT_EQ(image->GetWidth(), 128.0F);
    EXPECT_EQ(image->GetHeight(), 128.0F);
}

TEST(QTImage, ThePictureOfTheSkyIsFoundByName)
{
    auto const image = QTImage::imageWithName("starfield-1024.jpg");
    ASSERT_NE(image, nullptr);
    ASSERT_TRUE(image->CreateImageWithBitdepth(32));
    EXPECT_EQ(image->GetWidth(), 1024.0F);
    EXPECT_EQ(image->GetHeight(), 1024.0F);
}

TEST(QTImage, AMissingNameIsNull)
{
    EXPECT_EQ(QTImage::imageWithName("no-such-picture.jpg"), nullptr);
    EXPECT_EQ(QTImage::imageWithName("../Sounds/Click.AIFF"), nullptr);
}

TEST(QTImage, AFileThatIsNoPictureIsRefused)
{
    TestPicture const picture(4, 4, Plain(kRed));
    std::ofstream(picture.file()) << "these are only words, and none of them shows anything";
    QTImage image;
    EXPECT_FALSE(image.SetImageFromFSSpec(picture.file()));
    EXPECT_FALSE(image.SetImageFromFSSpec("/no/such/file"));
}

TEST_F(QTImageOfQuarters, BytesThatAreNoPictureOfTheFilesTypeAreLogged)
{
    CapturedLog log;
    EXPECT_FALSE(m_image.CreateImportRefFromData(std::vector<std::byte>(100)));
    EXPECT_THAT(log.lines(), ElementsAre("err: set error = -1"));
}

// Its first bytes are those of a bitmap. The picture was measured when the file was whole.
TEST_F(QTImageOfQuarters, BodyThatCannotBeDecodedDrawsNothingAndSucceeds)
{
    m_image.ReleaseImageData();
    std::filesystem::resize_file(m_picture.file(), 20);
    CapturedLog log;
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    EXPECT_FALSE(m_image.WasDrawn());
    EXPECT_THAT(PixelOf(m_image, 2, 2), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(QTImage, PictureOfAnotherTypeIsLoggedAndRefused)
{
    TestPicture const picture(1, 1, Plain(kRed));
    std::ofstream(picture.file()) << "P3 1 1 255 9 8 7\n"; // a portable pixmap
    QTImage image;
    CapturedLog log;
    EXPECT_FALSE(image.SetImageFromFSSpec(picture.file()));
    EXPECT_THAT(log.lines(), ElementsAre("error getting type -1"));
}

// Depths that cannot be drawn into leave memory of another size behind.
TEST_F(QTImageOfQuarters, DepthAfterOneThatFailedHasItsOwnBuffer)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    CapturedLog log;
    EXPECT_FALSE(m_image.CreateImageWithBitdepth(8));
    EXPECT_THAT(log.lines(), ElementsAre("NewGWorld failed 32, 4 x 4"));
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(32));
    EXPECT_THAT(PixelOf(m_image, 3, 3), ElementsAre(0, 255, 0, 255));
}

TEST(QTImage, AVanishedFileFailsQuietly)
{
    QTImage image;
    {
        TestPicture const picture(4, 4, Quarters);
        ASSERT_TRUE(image.SetImageFromFSSpec(picture.file()));
    }
    CapturedLog log;
    EXPECT_FALSE(image.LoadImageData());
    EXPECT_FALSE(image.CreateImageWithBitdepth(32));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(QTImage, BytesOfAnUnknownTypeHaveNoImporter)
{
    QTImage image;
    CapturedLog log;
    EXPECT_FALSE(image.CreateImportRefFromData({}));
    EXPECT_THAT(log.lines(), ElementsAre(StartsWith("err: open error for data handle of type ")));
}

TEST(QTImage, WithoutABufferNothingCanBeDrawn)
{
    QTImage image;
    CapturedLog log;
    EXPECT_FALSE(image.SetImportGWorldWithScale(true));
    EXPECT_THAT(log.lines(), ElementsAre("err: GraphicsImportSetGWorld(0, 0)"));
}

} // namespace
