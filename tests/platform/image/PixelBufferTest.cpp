// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/image/PixelBuffer.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <vector>

using namespace testing;
using platform::DrawScaled;
using platform::PixelBuffer;

namespace
{

using Pixels = std::vector<std::uint32_t>;

PixelBuffer Buffer(Pixels& pixels, int width, int height)
{
    return {pixels.data(), width, height, 32};
}

} // namespace

TEST(PixelBufferTest, SameSizeIsCopiedExactly)
{
    Pixels source{0xFF010203U, 0x80102030U, 0x00000000U, 0xFFFFFFFFU, 0x7F001122U, 0xFF000000U};
    Pixels target(6, 0x12345678U);
    EXPECT_TRUE(DrawScaled(Buffer(source, 3, 2), Buffer(target, 3, 2)));
    EXPECT_EQ(target, source);
}

TEST(PixelBufferTest, HalvingTakesTheMean)
{
    Pixels source{0xFF000000U, 0xFF000000U, 0xFF646464U, 0xFF646464U};
    Pixels target(1);
    EXPECT_TRUE(DrawScaled(Buffer(source, 2, 2), Buffer(target, 1, 1)));
    EXPECT_NEAR(target[0] & 255U, 50.0, 2.0);
    EXPECT_EQ(target[0] >> 24U, 255U);
}

TEST(PixelBufferTest, StretchedEdgesDoNotFade)
{
    Pixels source(4, 0xFF808080U);
    Pixels target(64, 0);
    EXPECT_TRUE(DrawScaled(Buffer(source, 2, 2), Buffer(target, 8, 8)));
    EXPECT_THAT(target, Each(0xFF808080U));
}

// Reading 32 bits per pixel would go beyond the end of a 16-bit buffer after half of the pixels.
TEST(PixelBufferTest, SourceOf16BitsIsReadAs32AndTransparentBeyondItsEnd)
{
    std::vector<std::uint16_t> source{0x0203, 0xFF01, 0x0506, 0xFF04};
    Pixels target(4, 0x11111111U);
    PixelBuffer const narrow{source.data(), 2, 2, 16};
    EXPECT_TRUE(DrawScaled(narrow, Buffer(target, 2, 2)));
    EXPECT_EQ(target, (Pixels{0xFF010203U, 0xFF040506U, 0U, 0U}));
}

TEST(PixelBufferTest, TargetOf16BitsTakesFiveBitsAColour)
{
    Pixels source{0xFFFF0000U, 0xFF00FF00U, 0xFF0000FFU, 0x00000000U};
    std::vector<std::uint16_t> target(4, 0x1234);
    EXPECT_TRUE(DrawScaled(Buffer(source, 4, 1), {target.data(), 4, 1, 16}));
    EXPECT_THAT(target, ElementsAre(0xFC00, 0x83E0, 0x801F, 0x0000));
}

TEST(PixelBufferTest, MissingMemoryIsRefused)
{
    Pixels pixels(4, 7);
    EXPECT_FALSE(DrawScaled({nullptr, 2, 2, 32}, Buffer(pixels, 2, 2)));
    EXPECT_FALSE(DrawScaled(Buffer(pixels, 2, 2), {nullptr, 2, 2, 32}));
    EXPECT_THAT(pixels, Each(7U));
}
