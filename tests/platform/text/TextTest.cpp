// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/text/Text.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace testing;
using platform::AttributedString;
using platform::Color;
using platform::TextBitmap;

namespace
{

constexpr Color kWhite{1.0F, 1.0F, 1.0F, 1.0F};

AttributedString Text(std::string const& text, std::string const& font = "Helvetica", float size = 20.0F)
{
    return {text, {font, size}};
}

std::array<int, 4> Pixel(TextBitmap const& bitmap, int x, int rowFromTop)
{
    auto const bytes = bitmap.rgba();
    auto const at = 4 * static_cast<std::size_t>(rowFromTop * bitmap.pixelsWide() + x);
    return {bytes[at], bytes[at + 1], bytes[at + 2], bytes[at + 3]};
}

int InkedPixels(TextBitmap const& bitmap)
{
    auto const bytes = bitmap.rgba();
    int count = 0;
    for (std::size_t at = 3; at < bytes.size(); at += 4)
    {
        count += bytes[at] != 0 ? 1 : 0;
    }
    return count;
}

int InkOf(std::string const& text, float size = 20.0F)
{
    AttributedString const string = Text(text, "Helvetica", size);
    TextBitmap bitmap(string.size());
    bitmap.drawString(string, kWhite, {0.0F, 0.0F});
    return InkedPixels(bitmap);
}

// The columns from the left to the last one with ink.
int WidthOfInk(AttributedString const& string, int scale)
{
    TextBitmap bitmap(string.size(), scale);
    bitmap.drawString(string, kWhite, {0.0F, 0.0F});
    auto const bytes = bitmap.rgba();
    int width = 0;
    for (std::size_t at = 0; at < bytes.size(); at += 4)
    {
        int const column = static_cast<int>(at / 4) % bitmap.pixelsWide();
        width = bytes[at + 3] != 0 ? std::max(width, column + 1) : width;
    }
    return width;
}

} // namespace

TEST(TextTest, EmptyStringMeasuresNothing)
{
    EXPECT_EQ(Text("").size().width, 0.0F);
    EXPECT_EQ(Text("").size().height, 0.0F);
}

// Helvetica's widths are public: M is 833 thousandths of the size, i is 222.
TEST(TextTest, HelveticaHasItsMetrics)
{
    EXPECT_NEAR(Text("MMMMMMMMMM", "Helvetica", 100.0F).size().width, 833.0F, 5.0F);
    EXPECT_NEAR(Text("iiiiiiiiii", "Helvetica", 100.0F).size().width, 222.0F, 5.0F);
}

// All of Courier's characters are 600 thousandths wide.
TEST(TextTest, CourierIsMonospaced)
{
    EXPECT_NEAR(Text("MMMMMMMMMM", "Courier", 100.0F).size().width, 600.0F, 5.0F);
    EXPECT_EQ(Text("iiii", "Courier").size().width, Text("MMMM", "Courier").size().width);
}

TEST(TextTest, UnknownFontFallsBackToAnother)
{
    AttributedString const string = Text("Quarrow", "No Such Font At All");
    EXPECT_GT(string.size().width, 0.0F);
    EXPECT_GT(InkOf("Quarrow"), 0);
}

TEST(TextTest, SizeIsInPixels)
{
    EXPECT_NEAR(Text("Start Race", "Helvetica", 40.0F).size().width, 2.0F * Text("Start Race").size().width,
                6.0F);
    EXPECT_NEAR(Text("Start Race").size().height, 23.0F, 2.0F); // a line is 1.15 sizes high
}

TEST(TextTest, BlanksAtTheEndsCount)
{
    EXPECT_GT(Text("a ").size().width, Text("a").size().width);
    EXPECT_GT(Text(" a").size().width, Text("a").size().width);
}

TEST(TextTest, OtherScriptsFindAFont)
{
    EXPECT_GT(InkOf("\xD0\x94\xD0\xB0"), 20);         // Cyrillic
    EXPECT_GT(InkOf("\xE6\x97\xA5\xE6\x9C\xAC"), 20); // Han
}

// Grey levels and no colours: the desktop's setting for subpixels does not matter.
TEST(TextTest, GlyphsAreSmoothAndWithoutColour)
{
    AttributedString const string = Text("SOQ");
    TextBitmap bitmap(string.size());
    bitmap.drawString(string, kWhite, {0.0F, 0.0F});
    auto const bytes = bitmap.rgba();
    bool hasBetween = false;
    for (std::size_t at = 0; at < bytes.size(); at += 4)
    {
        EXPECT_TRUE(bytes[at] == bytes[at + 1] && bytes[at] == bytes[at + 2] && bytes[at] == bytes[at + 3]);
        hasBetween = hasBetween || (bytes[at] > 50 && bytes[at] < 200);
    }
    EXPECT_TRUE(hasBetween);
}

TEST(TextBitmapTest, IsTransparentAtFirst)
{
    TextBitmap const bitmap({10.0F, 5.0F});
    EXPECT_EQ(bitmap.rgba(), std::vector<std::uint8_t>(200, 0));
}

TEST(TextBitmapTest, HasTheWholePixelsOfItsSize)
{
    TextBitmap const bitmap({10.9F, 5.2F});
    EXPECT_EQ(bitmap.pixelsWide(), 10);
    EXPECT_EQ(bitmap.pixelsHigh(), 5);
    EXPECT_EQ(bitmap.size().width, 10.9F);
    EXPECT_EQ(bitmap.rgba().size(), 200U);
}

TEST(TextBitmapTest, FillReplacesAndIsPremultiplied)
{
    TextBitmap bitmap({4.0F, 4.0F});
    bitmap.fillRect({{0.0F, 0.0F}, {4.0F, 4.0F}}, kWhite);
    bitmap.fillRect({{0.0F, 0.0F}, {4.0F, 4.0F}}, {1.0F, 0.5F, 0.0F, 0.5F});
    EXPECT_THAT(Pixel(bitmap, 1, 1),
                ElementsAre(AllOf(Ge(127), Le(128)), AllOf(Ge(63), Le(64)), 0, AllOf(Ge(127), Le(128))));
}

TEST(TextBitmapTest, OriginIsAtTheBottomLeft)
{
    TextBitmap bitmap({10.0F, 10.0F});
    bitmap.fillRect({{0.0F, 0.0F}, {3.0F, 2.0F}}, kWhite);
    EXPECT_EQ(Pixel(bitmap, 0, 9)[3], 255);
    EXPECT_EQ(Pixel(bitmap, 2, 8)[3], 255);
    EXPECT_EQ(Pixel(bitmap, 3, 9)[3], 0);
    EXPECT_EQ(Pixel(bitmap, 0, 7)[3], 0);
    EXPECT_EQ(InkedPixels(bitmap), 6);
}

TEST(TextBitmapTest, FrameLiesInside)
{
    TextBitmap bitmap({12.0F, 12.0F});
    bitmap.frameRect({{2.0F, 2.0F}, {8.0F, 8.0F}}, kWhite, 1.5F);
    EXPECT_EQ(Pixel(bitmap, 1, 5)[3], 0);
    EXPECT_EQ(Pixel(bitmap, 2, 5)[3], 255);
    EXPECT_NEAR(Pixel(bitmap, 3, 5)[3], 128, 2); // the half pixel
    EXPECT_EQ(Pixel(bitmap, 4, 5)[3], 0);
    EXPECT_EQ(Pixel(bitmap, 9, 5)[3], 255);
    EXPECT_EQ(Pixel(bitmap, 10, 5)[3], 0);
}

TEST(TextBitmapTest, OnADenseDisplayItHasTheWholePixelsOfItsScaledSize)
{
    TextBitmap const bitmap({10.9F, 5.2F}, 2);
    EXPECT_EQ(bitmap.pixelsWide(), 21);
    EXPECT_EQ(bitmap.pixelsHigh(), 10);
    EXPECT_EQ(bitmap.size().width, 10.9F);
    EXPECT_EQ(bitmap.rgba().size(), 840U);
}

TEST(TextBitmapTest, OnADenseDisplayTheFrameIsScaled)
{
    TextBitmap bitmap({12.0F, 12.0F}, 2);
    bitmap.frameRect({{2.0F, 2.0F}, {8.0F, 8.0F}}, kWhite, 1.5F);
    EXPECT_EQ(Pixel(bitmap, 3, 10)[3], 0);
    EXPECT_EQ(Pixel(bitmap, 4, 10)[3], 255);
    EXPECT_EQ(Pixel(bitmap, 6, 10)[3], 255);
    EXPECT_EQ(Pixel(bitmap, 7, 10)[3], 0);
    EXPECT_EQ(Pixel(bitmap, 10, 19)[3], 255);
    EXPECT_EQ(Pixel(bitmap, 10, 20)[3], 0);
}

TEST(TextBitmapTest, OnADenseDisplayTextIsAsSharpAsTextOfThatSize)
{
    AttributedString const string = Text("R");
    TextBitmap bitmap(string.size(), 2);
    bitmap.drawString(string, kWhite, {0.0F, 0.0F});
    EXPECT_EQ(InkedPixels(bitmap), InkOf("R", 40.0F));
}

TEST(TextBitmapTest, OnADenseDisplayLettersKeepTheirPlaces)
{
    AttributedString const string = Text("Fastest Times");
    EXPECT_NEAR(WidthOfInk(string, 2), 2 * WidthOfInk(string, 1), 2); // a pixel's edge is the glyph's own
}

TEST(TextBitmapTest, FrameThickerThanItsRectangleFillsIt)
{
    TextBitmap bitmap({6.0F, 6.0F});
    bitmap.frameRect({{1.0F, 1.0F}, {4.0F, 2.0F}}, kWhite, 1.5F);
    EXPECT_EQ(InkedPixels(bitmap), 8);
}

TEST(TextBitmapTest, TextStandsOnThePointAndMovesByWholePixels)
{
    AttributedString const string = Text("H");
    platform::Size const size = string.size();
    TextBitmap tight(size);
    tight.drawString(string, kWhite, {0.0F, 0.0F});
    TextBitmap moved({size.width + 7.0F, size.height + 5.0F});
    moved.drawString(string, kWhite, {4.0F, 2.0F});
    for (int row = 0; row < tight.pixelsHigh(); ++row)
    {
        for (int x = 0; x < tight.pixelsWide(); ++x)
        {
            ASSERT_EQ(Pixel(tight, x, row), Pixel(moved, x + 4, row + 3)) << x << ", " << row;
        }
    }
    EXPECT_EQ(InkedPixels(tight), InkedPixels(moved));
}

TEST(TextBitmapTest, TextTakesTheColourThatItIsDrawnIn)
{
    AttributedString const string = Text("H");
    TextBitmap bitmap(string.size());
    bitmap.drawString(string, {1.0F, 0.0F, 0.0F, 1.0F}, {0.0F, 0.0F});
    auto const bytes = bitmap.rgba();
    EXPECT_EQ(*std::max_element(bytes.begin(), bytes.end()), 255);
    for (std::size_t at = 0; at < bytes.size(); at += 4)
    {
        ASSERT_EQ(bytes[at + 1], 0);
        ASSERT_EQ(bytes[at + 2], 0);
    }
}
