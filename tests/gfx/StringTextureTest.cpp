// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/StringTexture.h"

#include "platform/base/OpenGL.h"
#include "support/CapturedLog.h"
#include "support/gl/RecordingGL.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

namespace
{

using recording::call;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr platform::Color kWhite{1.0F, 1.0F, 1.0F, 1.0F};
constexpr platform::Color kClearWhite{1.0F, 1.0F, 1.0F, 0.0F};
constexpr platform::Color kRed{1.0F, 0.0F, 0.0F, 1.0F};
constexpr platform::Color kBlue{0.0F, 0.0F, 1.0F, 0.5F};
constexpr platform::Color kGreen{0.0F, 1.0F, 0.0F, 1.0F};

class StringTextureTest : public testing::Test
{
protected:
    StringTextureTest()
    {
        recording::reset();
        m_texture.initWithString("Start Race", m_attributes);
    }

    platform::Size measured(std::string const& text)
    {
        return platform::AttributedString(text, m_attributes).size();
    }

    // What drawing at (0, 0) calls.
    std::vector<recording::Call> draw()
    {
        return recording::during([&] { m_texture.drawAtPoint({0.0F, 0.0F}); });
    }

    void expectFrame(float width, float height)
    {
        EXPECT_EQ(m_texture.frameSize().width, width);
        EXPECT_EQ(m_texture.frameSize().height, height);
    }

    StringTexture::Attributes const m_attributes{"Helvetica", 20.0F};
    StringTexture m_texture;
};

TEST_F(StringTextureTest, ByDefaultTheTextIsWhiteWithoutBoxAndFrame)
{
    EXPECT_EQ(m_texture.textColor(), kWhite);
    EXPECT_EQ(m_texture.boxColor(), kClearWhite);
    EXPECT_EQ(m_texture.borderColor(), kClearWhite);
    EXPECT_EQ(m_texture.marginSize().width, 4.0F);
    EXPECT_EQ(m_texture.marginSize().height, 2.0F);
    EXPECT_FALSE(m_texture.staticFrame());
    EXPECT_EQ(m_texture.texName(), 0U);
    EXPECT_EQ(m_texture.texSize().width, 0.0F);
}

TEST_F(StringTextureTest, TheInitialisersTakeColours)
{
    m_texture.initWithString("x", m_attributes, kRed, kGreen, kBlue);
    EXPECT_EQ(m_texture.textColor(), kRed);
    EXPECT_EQ(m_texture.boxColor(), kGreen);
    EXPECT_EQ(m_texture.borderColor(), kBlue);
    EXPECT_EQ(m_texture.string().string(), "x");
    m_texture.initWithAttributedString({"y", m_attributes});
    EXPECT_EQ(m_texture.textColor(), kWhite);
    EXPECT_EQ(m_texture.string().string(), "y");
}

// With margins of (4, 2) on each side.
TEST_F(StringTextureTest, TheFrameIsTheTextWithItsMargins)
{
    platform::Size const text = measured("Start Race");
    ASSERT_GT(text.width, 50.0F);
    expectFrame(text.width + 8.0F, text.height + 4.0F);
    draw();
    EXPECT_EQ(m_texture.texSize().width, text.width + 8.0F);
    EXPECT_EQ(m_texture.texSize().height, text.height + 4.0F);
}

TEST_F(StringTextureTest, AnEmptyStringHasAFrameOfTwiceTheMargins)
{
    m_texture.setString("", m_attributes);
    expectFrame(8.0F, 4.0F);
    draw();
    EXPECT_NE(m_texture.texName(), 0U);
}

TEST_F(StringTextureTest, ADynamicFrameFollowsTheText)
{
    draw();
    m_texture.setString("Start", m_attributes);
    expectFrame(measured("Start").width + 8.0F, measured("Start").height + 4.0F);
    m_texture.setMargins({10.0F, 20.0F});
    expectFrame(measured("Start").width + 20.0F, measured("Start").height + 40.0F);
}

TEST_F(StringTextureTest, AStaticFrameKeepsItsSizeWhateverTheText)
{
    m_texture.useStaticFrame({200.0F, 30.0F});
    EXPECT_TRUE(m_texture.staticFrame());
    draw();
    EXPECT_EQ(m_texture.texSize().width, 200.0F);
    EXPECT_EQ(m_texture.texSize().height, 30.0F);
    m_texture.setString("a much longer text than would ever fit", m_attributes);
    m_texture.setMargins({50.0F, 5.0F});
    expectFrame(200.0F, 30.0F);
    draw();
    EXPECT_EQ(m_texture.texSize().width, 200.0F);
    EXPECT_EQ(m_texture.marginSize().width, 50.0F);
}

TEST_F(StringTextureTest, BackToADynamicFrameMeasuresAnew)
{
    m_texture.useStaticFrame({200.0F, 30.0F});
    draw();
    m_texture.useDynamicFrame();
    EXPECT_EQ(m_texture.texName(), 0U);
    EXPECT_FALSE(m_texture.staticFrame());
    expectFrame(measured("Start Race").width + 8.0F, measured("Start Race").height + 4.0F);
}

TEST_F(StringTextureTest, AFrameThatIsDynamicAlreadyKeepsItsTexture)
{
    draw();
    unsigned const name = m_texture.texName();
    m_texture.useDynamicFrame();
    EXPECT_EQ(m_texture.texName(), name);
}

TEST_F(StringTextureTest, TheTextureIsMadeByTheFirstDrawOnly)
{
    EXPECT_TRUE(recording::textures().empty());
    EXPECT_EQ(recording::count(draw(), "glTexImage2D"), 1);
    EXPECT_EQ(recording::count(draw(), "glTexImage2D"), 0);
    EXPECT_EQ(recording::textures().size(), 1U);
}

TEST_F(StringTextureTest, EverySetterThrowsTheTextureAway)
{
    std::vector<std::function<void()>> const setters{
        [this] {
            m_texture.setString({"x", m_attributes});
        },
        [this] { m_texture.setString("x", m_attributes); },
        [this] { m_texture.setTextColor(kRed); },
        [this] { m_texture.setBoxColor(kRed); },
        [this] { m_texture.setBorderColor(kRed); },
        [this] {
            m_texture.setMargins({1.0F, 1.0F});
        },
        [this] {
            m_texture.useStaticFrame({20.0F, 20.0F});
        },
        [this] { m_texture.useDynamicFrame(); },
    };
    int index = 0;
    for (auto const& set : setters)
    {
        draw();
        ASSERT_NE(m_texture.texName(), 0U);
        set();
        EXPECT_EQ(m_texture.texName(), 0U) << "setter " << index;
        EXPECT_TRUE(recording::textures().empty()) << "setter " << index;
        ++index;
    }
}

TEST_F(StringTextureTest, ColoursAreKept)
{
    m_texture.setTextColor(kRed);
    m_texture.setBoxColor(kGreen);
    m_texture.setBorderColor(kBlue);
    EXPECT_EQ(m_texture.textColor(), kRed);
    EXPECT_EQ(m_texture.boxColor(), kGreen);
    EXPECT_EQ(m_texture.borderColor(), kBlue);
}

TEST_F(StringTextureTest, TheUploadIsARectangleOfRgbaBytes)
{
    m_texture.useStaticFrame({200.9F, 30.9F});
    auto const calls = draw();
    double const name = m_texture.texName();
    EXPECT_EQ(recording::indexOf(calls, call("glGenTextures", {1})), 0);
    EXPECT_EQ(recording::indexOf(calls, call("glBindTexture", {GL_TEXTURE_RECTANGLE_EXT, name})), 1);
    EXPECT_EQ(recording::indexOf(calls, call("glTexImage2D", {GL_TEXTURE_RECTANGLE_EXT, 0, GL_RGBA, 200, 30,
                                                              0, GL_RGBA, GL_UNSIGNED_BYTE})),
              2);
    EXPECT_EQ(recording::count(calls, "glTexParameteri"), 0);
    EXPECT_EQ(recording::count(calls, "glTexParameterf"), 0);
}

using Rgba = std::array<int, 4>;

Rgba PixelOf(recording::Upload const& bitmap, int x, int row)
{
    auto const at = bitmap.pixels.begin() + 4 * (row * bitmap.width + x);
    return {at[0], at[1], at[2], at[3]};
}

struct Box
{
    int left = 1000;
    int top = 1000;
    int right = -1;
    int bottom = -1;
};

// Where the bitmap is not transparent; both ends included.
Box InkOf(recording::Upload const& bitmap)
{
    Box ink;
    for (int row = 0; row < bitmap.height; ++row)
    {
        for (int x = 0; x < bitmap.width; ++x)
        {
            if (PixelOf(bitmap, x, row)[3] != 0)
            {
                ink = {std::min(ink.left, x), std::min(ink.top, row), std::max(ink.right, x),
                       std::max(ink.bottom, row)};
            }
        }
    }
    return ink;
}

// A line of 1.5 pixels: the second row is half frame.
TEST_F(StringTextureTest, TheFrameLiesAroundTheFillInTheirColours)
{
    m_texture.initWithString("", m_attributes, kRed, kGreen, {0.0F, 0.0F, 1.0F, 1.0F});
    m_texture.useStaticFrame({40.0F, 20.0F});
    draw();
    recording::Upload const& bitmap = recording::uploads().at(0);
    EXPECT_EQ(bitmap.texture, m_texture.texName());
    for (auto const& [x, row] : {std::pair{0, 0}, {39, 0}, {0, 19}, {39, 19}, {20, 0}, {0, 10}})
    {
        EXPECT_EQ(PixelOf(bitmap, x, row), (Rgba{0, 0, 255, 255})) << x << ", " << row;
    }
    EXPECT_NEAR(PixelOf(bitmap, 20, 1)[1], 128, 2);
    EXPECT_NEAR(PixelOf(bitmap, 20, 1)[2], 128, 2);
    EXPECT_EQ(PixelOf(bitmap, 2, 2), (Rgba{0, 255, 0, 255}));
    EXPECT_EQ(PixelOf(bitmap, 37, 17), (Rgba{0, 255, 0, 255}));
}

TEST_F(StringTextureTest, BoxAndFrameOfNoAlphaAreNotDrawn)
{
    m_texture.initWithString("", m_attributes, kRed, {0.0F, 1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F, 0.0F});
    m_texture.useStaticFrame({40.0F, 20.0F});
    draw();
    EXPECT_THAT(recording::uploads().at(0).pixels, testing::Each(0));
}

// Within what the text measures, from the margins on; its place counts from the bottom left.
TEST_F(StringTextureTest, TheTextStandsAtItsMarginsInItsColour)
{
    m_texture.setTextColor(kRed);
    m_texture.useStaticFrame({200.0F, 60.0F});
    m_texture.setMargins({30.0F, 10.0F});
    draw();
    platform::Size const text = measured("Start Race");
    Box const ink = InkOf(recording::uploads().at(0));
    EXPECT_GE(ink.left, 30);
    EXPECT_LE(ink.left, 32) << "an S begins close to its place";
    EXPECT_LE(ink.right, 30 + static_cast<int>(text.width));
    EXPECT_GE(ink.right, 20 + static_cast<int>(text.width));
    EXPECT_GE(ink.top, 50 - static_cast<int>(text.height));
    EXPECT_LT(ink.bottom, 50);
    EXPECT_GT(ink.bottom, 40) << "the letters stand on the line";
    for (int row = ink.top; row <= ink.bottom; ++row)
    {
        Rgba const pixel = PixelOf(recording::uploads().at(0), ink.left, row);
        EXPECT_EQ(pixel[0], pixel[3]);
        EXPECT_EQ(pixel[1] + pixel[2], 0);
    }

    m_texture.setMargins({33.0F, 15.0F});
    draw();
    Box const moved = InkOf(recording::uploads().at(0));
    EXPECT_EQ(moved.left, ink.left + 3);
    EXPECT_EQ(moved.right, ink.right + 3);
    EXPECT_EQ(moved.top, ink.top - 5);
    EXPECT_EQ(moved.bottom, ink.bottom - 5);
}

TEST_F(StringTextureTest, TheQuadIsTheTextureAtItsNaturalSize)
{
    m_texture.useStaticFrame({200.0F, 30.0F});
    draw();
    double const name = m_texture.texName();
    auto const calls = recording::during([&] { m_texture.drawAtPoint({10.0F, 20.0F}); });
    EXPECT_THAT(calls, ElementsAre(call("glBindTexture", {GL_TEXTURE_RECTANGLE_EXT, name}),
                                   call("glBegin", {GL_QUADS}), call("glTexCoord2f", {0, 0}),
                                   call("glVertex2f", {10, 20}), call("glTexCoord2f", {0, 30}),
                                   call("glVertex2f", {10, 50}), call("glTexCoord2f", {200, 30}),
                                   call("glVertex2f", {210, 50}), call("glTexCoord2f", {200, 0}),
                                   call("glVertex2f", {210, 20}), call("glEnd")));
}

TEST_F(StringTextureTest, OnADenseDisplayTheBitmapIsLargerAndTheQuadIsNot)
{
    recording::setDisplayScale(2);
    m_texture.useStaticFrame({200.0F, 30.0F});
    auto const calls = recording::during([&] { m_texture.drawAtPoint({10.0F, 20.0F}); });
    EXPECT_GE(recording::indexOf(calls, call("glTexImage2D", {GL_TEXTURE_RECTANGLE_EXT, 0, GL_RGBA, 400, 60,
                                                              0, GL_RGBA, GL_UNSIGNED_BYTE})),
              0);
    EXPECT_GE(recording::indexOf(calls, call("glTexCoord2f", {400, 60})), 0);
    EXPECT_GE(recording::indexOf(calls, call("glVertex2f", {210, 50})), 0);
    EXPECT_EQ(m_texture.texSize().width, 200.0F);
    EXPECT_EQ(m_texture.texSize().height, 30.0F);
}

TEST_F(StringTextureTest, ADisplayOfAnotherDensityMakesANewTexture)
{
    draw();
    recording::setDisplayScale(2);
    EXPECT_EQ(recording::count(draw(), "glTexImage2D"), 1);
    EXPECT_EQ(recording::count(draw(), "glTexImage2D"), 0);
    EXPECT_EQ(recording::textures().size(), 1U);
    expectFrame(measured("Start Race").width + 8.0F, measured("Start Race").height + 4.0F);
}

TEST_F(StringTextureTest, BoundsStretchTheTexture)
{
    m_texture.useStaticFrame({200.0F, 30.0F});
    auto const calls = recording::during([&] { m_texture.drawWithBounds({{1.0F, 2.0F}, {50.0F, 60.0F}}); });
    EXPECT_EQ(recording::count(calls, "glTexImage2D"), 1) << "made on demand here too";
    EXPECT_GE(recording::indexOf(calls, call("glTexCoord2f", {200, 30})), 0);
    EXPECT_GE(recording::indexOf(calls, call("glVertex2f", {51, 62})), 0);
}

TEST_F(StringTextureTest, ATextureIsDeletedInTheContextThatOwnsIt)
{
    int owner = 0;
    int another = 0;
    recording::setCurrentContext(&owner);
    draw();
    unsigned const name = m_texture.texName();
    recording::setCurrentContext(&another);
    m_texture.setTextColor(kRed);
    EXPECT_THAT(recording::contextDeletions(), ElementsAre(Pair(&owner, name)));
    draw();
    EXPECT_NE(m_texture.texName(), 0U);
    m_texture.deleteTexture();
    EXPECT_EQ(recording::contextDeletions().back().first, &another);
}

TEST_F(StringTextureTest, ATextureIsDeletedOnce)
{
    draw();
    m_texture.deleteTexture();
    m_texture.deleteTexture();
    EXPECT_EQ(recording::contextDeletions().size(), 1U);
}

TEST_F(StringTextureTest, TheDestructorDeletesTheTexture)
{
    {
        StringTexture texture;
        texture.initWithString("x", m_attributes).drawAtPoint({0.0F, 0.0F});
        ASSERT_EQ(recording::textures().size(), 1U);
    }
    EXPECT_TRUE(recording::textures().empty());
}

TEST_F(StringTextureTest, WithoutAContextNothingIsDrawnAndTheNextDrawTriesAgain)
{
    recording::setCurrentContext(nullptr);
    CapturedLog log;
    EXPECT_THAT(draw(), IsEmpty());
    EXPECT_THAT(log.lines(), ElementsAre("StringTexture -genTexture: Failure to get current OpenGL context"));
    EXPECT_EQ(m_texture.texName(), 0U);

    int context = 0;
    recording::setCurrentContext(&context);
    EXPECT_EQ(recording::count(draw(), "glEnd"), 1);
    EXPECT_NE(m_texture.texName(), 0U);
}

TEST_F(StringTextureTest, ARefusedNameDrawsNothing)
{
    recording::refuseNextTexture();
    EXPECT_EQ(recording::count(draw(), "glBegin"), 0);
    EXPECT_EQ(recording::count(draw(), "glBegin"), 1);
}

} // namespace
