// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/GBuffer.h"

#include "gfx/QTImage.h"
#include "support/CapturedLog.h"
#include "support/TestPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

// Refused memory is null here, as it is without the sanitizer.
extern "C" char const* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

namespace
{

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::Le;

std::vector<int> BytesOf(GBuffer const& buffer)
{
    auto const* const bytes = static_cast<std::uint8_t const*>(buffer.GetPixels());
    auto const count =
        static_cast<std::ptrdiff_t>(buffer.GetWidth() * buffer.GetHeight()) * (buffer.GetBitDepth() / 8);
    return {bytes, bytes + count};
}

std::unique_ptr<QTImage> ImageOf(TestPicture const& picture)
{
    auto image = std::make_unique<QTImage>();
    return image->SetImageFromFSSpec(picture.file()) && image->CreateImageWithBitdepth(32) ? std::move(image)
                                                                                           : nullptr;
}

TEST(GBuffer, HasTheSizeAndDepthThatItIsMadeWith)
{
    auto const buffer = GBuffer::Create({30.0F, 20.0F}, 16);
    ASSERT_NE(buffer, nullptr);
    EXPECT_EQ(buffer->GetWidth(), 30.0F);
    EXPECT_EQ(buffer->GetHeight(), 20.0F);
    EXPECT_EQ(buffer->GetBitDepth(), 16);
    EXPECT_THAT(BytesOf(*buffer), Each(0));
}

TEST(GBuffer, RefusedMemoryIsLoggedAndNull)
{
    CapturedLog log;
    EXPECT_EQ(GBuffer::Create({1.0e9F, 1.0e9F}, 32), nullptr);
    EXPECT_THAT(log.lines(), ElementsAre("buffer malloc failed"));
}

// Cairo draws no deeper than 32,767 pixels, and no 24 bits without padding.
TEST(GBuffer, MemoryThatNothingCanDrawIntoIsLoggedWithTheSizesOfBefore)
{
    CapturedLog log;
    EXPECT_EQ(GBuffer::Create({40000.0F, 1.0F}, 32), nullptr);
    GBuffer buffer;
    ASSERT_TRUE(buffer.CreateImageBuffer({30.0F, 20.0F}, 16));
    EXPECT_FALSE(buffer.CreateImageBuffer({4.0F, 4.0F}, 24));
    EXPECT_NE(buffer.GetPixels(), nullptr) << "the memory stays";
    EXPECT_FALSE(buffer.CreateCGContext());
    EXPECT_FALSE(buffer.CreateImageBuffer({0.0F, 4.0F}, 32));
    EXPECT_THAT(log.lines(),
                ElementsAre("NewGWorld failed 0, 0 x 0", "NewGWorld failed 16, 30 x 20", "GetGWorldPixMap"));
}

TEST(GBuffer, HasAContextOnlyWithMemory)
{
    GBuffer empty;
    EXPECT_FALSE(empty.CreateCGContext());
    auto const buffer = GBuffer::Create({4.0F, 4.0F}, 32);
    EXPECT_TRUE(buffer->CreateCGContext());
    EXPECT_TRUE(buffer->CreateCGContext());
}

TEST(GBuffer, ACopyFillsTheWholeDestination)
{
    TestPicture const picture(8, 8, Plain(0xFF102030));
    auto const image = ImageOf(picture);
    ASSERT_NE(image, nullptr);
    for (platform::Size const size :
         {platform::Size{4.0F, 2.0F}, platform::Size{1.0F, 1.0F}, platform::Size{16.0F, 9.0F}})
    {
        auto const copy = GBuffer::Create(size, 32);
        image->copyTo(*copy);
        std::vector<int> const bytes = BytesOf(*copy);
        for (std::size_t i = 0; i < bytes.size(); i += 4)
        {
            ASSERT_THAT(std::vector(bytes.begin() + static_cast<std::ptrdiff_t>(i),
                                    bytes.begin() + static_cast<std::ptrdiff_t>(i) + 4),
                        ElementsAre(0x30, 0x20, 0x10, 0xFF));
        }
    }
}

TEST(GBuffer, ACopyKeepsTheRowsInOrder)
{
    TestPicture const picture(8, 8, [](int, int y) { return y < 4 ? 0xFFFF0000U : 0xFF0000FFU; });
    auto const image = ImageOf(picture);
    ASSERT_NE(image, nullptr);
    auto const copy = GBuffer::Create({1.0F, 8.0F}, 32);
    image->copyTo(*copy);
    std::vector<int> const bytes = BytesOf(*copy);
    EXPECT_EQ(bytes[0], 255) << "row 0 is the picture's bottom: blue";
    EXPECT_EQ(bytes[7 * 4 + 2], 255) << "the last row its top: red";
}

TEST(GBuffer, ASmallerCopyInterpolates)
{
    TestPicture const picture(2, 2,
                              [](int x, int y) { return (x + y) % 2 == 0 ? 0xFFFFFFFFU : 0xFF000000U; });
    auto const image = ImageOf(picture);
    ASSERT_NE(image, nullptr);
    auto const copy = GBuffer::Create({1.0F, 1.0F}, 32);
    image->copyTo(*copy);
    std::vector<int> bytes = BytesOf(*copy);
    bytes.pop_back(); // alpha
    EXPECT_THAT(bytes, Each(AllOf(Ge(100), Le(155)))) << "half black, half white";
}

TEST(GBuffer, ACopyReplacesWhatWasThere)
{
    TestPicture const white(4, 4, Plain(0xFFFFFFFF));
    TestPicture const clear(4, 4, Plain(0x00000000));
    auto const first = ImageOf(white);
    auto const second = ImageOf(clear);
    auto const copy = GBuffer::Create({4.0F, 4.0F}, 32);
    first->copyTo(*copy);
    ASSERT_THAT(BytesOf(*copy), Each(255));
    second->copyTo(*copy);
    EXPECT_THAT(BytesOf(*copy), Each(0));
}

TEST(GBuffer, ACopyIntoNothingDoesNothing)
{
    TestPicture const picture(4, 4, Plain(0xFFFFFFFF));
    auto const image = ImageOf(picture);
    GBuffer empty;
    image->copyTo(empty);
    EXPECT_EQ(empty.GetPixels(), nullptr);
}

} // namespace
