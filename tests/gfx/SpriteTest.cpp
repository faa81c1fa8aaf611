// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/Sprite.h"

#include "gfx/QTImage.h"
#include "platform/base/OpenGL.h"
#include "support/gl/RecordingGL.h"
#include "support/TestPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace
{

using recording::Call;
using recording::call;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class SpriteTest : public testing::Test
{
protected:
    SpriteTest()
    {
        recording::reset();
        m_image.SetImageFromFSSpec(m_picture.file());
        m_image.CreateImageWithBitdepth(32);
    }

    // The calls of making the texture.
    std::vector<Call> create(int mode, QTImage const& image)
    {
        return recording::during([&] { EXPECT_TRUE(m_sprite.CreateTextureFromImage(image, mode)); });
    }
    std::vector<Call> create(int mode) { return create(mode, m_image); }

    Call filter(int which, int value)
    {
        return call("glTexParameteri", {GL_TEXTURE_2D, double(which), double(value)});
    }

    TestPicture m_picture{256, 64, Plain(0xFFFFFFFF)};
    TestPicture m_odd{100, 30, Plain(0xFFFFFFFF)};
    QTImage m_image;
    Sprite m_sprite;
};

TEST_F(SpriteTest, ModesBelowLinearAreNearest)
{
    for (int const mode : {-1, 0, 1})
    {
        auto const calls = create(mode);
        EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_MAG_FILTER, GL_NEAREST)));
        EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_MIN_FILTER, GL_NEAREST)));
        EXPECT_EQ(recording::count(calls, "glTexImage2D"), 1);
    }
}

TEST_F(SpriteTest, Mode2IsLinear)
{
    auto const calls = create(2);
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_MAG_FILTER, GL_LINEAR)));
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_MIN_FILTER, GL_LINEAR)));
    EXPECT_EQ(recording::count(calls, "glTexImage2D"), 1);
}

TEST_F(SpriteTest, TheTextureIsClampedAndUnboundAgain)
{
    auto const calls = create(1);
    double const name = m_sprite.GetTexture();
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_WRAP_S, GL_CLAMP)));
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_WRAP_T, GL_CLAMP)));
    EXPECT_THAT(calls, Contains(call("glTexImage2D", {GL_TEXTURE_2D, 0, GL_RGBA8, 256, 64, 0, GL_BGRA,
                                                      GL_UNSIGNED_INT_8_8_8_8_REV})));
    EXPECT_EQ(recording::indexOf(calls, call("glBindTexture", {GL_TEXTURE_2D, name})), 1);
    EXPECT_EQ(calls.back(), call("glBindTexture", {GL_TEXTURE_2D, 0}));
}

TEST_F(SpriteTest, MipmapsGoDownToOnePixel)
{
    auto const calls = create(3);
    std::vector<std::pair<int, int>> sizes;
    int level = 0;
    for (Call const& made : calls)
    {
        if (made.name == "glTexImage2D")
        {
            EXPECT_EQ(made.arguments[1], level++);
            sizes.emplace_back(made.arguments[3], made.arguments[4]);
        }
    }
    using Size = std::pair<int, int>;
    EXPECT_THAT(sizes, ElementsAre(Size{256, 64}, Size{128, 32}, Size{64, 16}, Size{32, 8}, Size{16, 4},
                                   Size{8, 2}, Size{4, 1}, Size{2, 1}, Size{1, 1}));
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_MAG_FILTER, GL_LINEAR)));
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR)));
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_BASE_LEVEL, 0)));
    EXPECT_THAT(calls, Contains(filter(GL_TEXTURE_MAX_LEVEL, 8)));
}

TEST_F(SpriteTest, SixteenBitsAreUploadedAsSuch)
{
    ASSERT_TRUE(m_image.CreateImageWithBitdepth(16));
    auto const calls = create(1);
    Call const upload = call(
        "glTexImage2D", {GL_TEXTURE_2D, 0, GL_RGB5_A1, 256, 64, 0, GL_BGRA, GL_UNSIGNED_SHORT_1_5_5_5_REV});
    int const at = recording::indexOf(calls, upload);
    ASSERT_GT(at, 0);
    auto const around = calls.begin() + at;
    EXPECT_EQ(around[-1], call("glPixelStorei", {GL_UNPACK_ALIGNMENT, 2}));
    EXPECT_EQ(around[1], call("glPixelStorei", {GL_UNPACK_ALIGNMENT, 4})) << "as it is without us";
}

// Rows of two bytes, one after the other.
TEST_F(SpriteTest, SixteenBitRowsOfOnePixelAreUploadedWhole)
{
    TestPicture const column(1, 4, [](int, int y) { return 0xFF000000U + 0x001F0000U * unsigned(y + 1); });
    QTImage image;
    ASSERT_TRUE(image.SetImageFromFSSpec(column.file()) && image.CreateImageWithBitdepth(16));
    create(3, image);
    ASSERT_EQ(recording::uploads().size(), 3U);
    std::vector<std::uint8_t> const& uploaded = recording::uploads()[0].pixels;
    ASSERT_EQ(uploaded.size(), 8U);
    EXPECT_EQ(std::memcmp(uploaded.data(), image.GetPixels(), 8), 0);
    EXPECT_THAT(uploaded, Not(testing::Each(uploaded[0])));
}

TEST_F(SpriteTest, TheSizeIsThePicturesOwn)
{
    QTImage odd;
    ASSERT_TRUE(odd.SetImageFromFSSpec(m_odd.file()) && odd.CreateImageWithBitdepth(32));
    create(1, odd);
    EXPECT_EQ(m_sprite.GetWidth(), 100.0F);
    EXPECT_EQ(m_sprite.GetHeight(), 30.0F);
}

TEST_F(SpriteTest, ASecondPictureKeepsTheName)
{
    create(1);
    unsigned const name = m_sprite.GetTexture();
    auto const calls = create(2);
    EXPECT_EQ(m_sprite.GetTexture(), name);
    EXPECT_EQ(recording::count(calls, "glGenTextures"), 0);
}

TEST_F(SpriteTest, WithoutANameThereIsNoTexture)
{
    recording::refuseNextTexture();
    auto const calls = recording::during([&] { EXPECT_FALSE(m_sprite.CreateTextureFromImage(m_image, 1)); });
    EXPECT_THAT(calls, Not(Contains(testing::Field(&Call::name, "glTexImage2D"))));
    EXPECT_EQ(m_sprite.GetTexture(), 0U);
}

TEST_F(SpriteTest, SetBindsAndMinifiesByItsMode)
{
    struct
    {
        int mode;
        int minify;
    } const cases[] = {{1, GL_NEAREST}, {2, GL_LINEAR}, {3, GL_LINEAR_MIPMAP_NEAREST}};
    for (auto const& [mode, minify] : cases)
    {
        create(mode);
        EXPECT_THAT(recording::during([&] { m_sprite.set(); }),
                    ElementsAre(call("glBindTexture", {GL_TEXTURE_2D, double(m_sprite.GetTexture())}),
                                filter(GL_TEXTURE_MIN_FILTER, minify)));
    }
}

TEST_F(SpriteTest, SetLeavesTheFilterInModes0AndAbove3)
{
    for (int const mode : {0, 4})
    {
        create(mode);
        EXPECT_THAT(recording::during([&] { m_sprite.set(); }),
                    ElementsAre(call("glBindTexture", {GL_TEXTURE_2D, double(m_sprite.GetTexture())})));
    }
}

TEST_F(SpriteTest, SetWithoutATextureDoesNothing)
{
    EXPECT_THAT(recording::during([&] { m_sprite.set(); }), IsEmpty());
}

TEST_F(SpriteTest, TheQuadShowsTheWholeTexture)
{
    create(1);
    EXPECT_THAT(recording::during([&] { m_sprite.render(10.9F, 20.9F); }),
                ElementsAre(call("glBegin", {GL_QUADS}), call("glTexCoord2i", {0, 1}),
                            call("glVertex2i", {10, 20}), call("glTexCoord2i", {0, 0}),
                            call("glVertex2i", {10, 84}), call("glTexCoord2i", {1, 0}),
                            call("glVertex2i", {266, 84}), call("glTexCoord2i", {1, 1}),
                            call("glVertex2i", {266, 20}), call("glEnd")));
}

TEST_F(SpriteTest, DeletingTellsWhetherThereWasATexture)
{
    EXPECT_FALSE(m_sprite.deleteTexture());
    create(1);
    EXPECT_TRUE(m_sprite.deleteTexture());
    EXPECT_EQ(m_sprite.GetTexture(), 0U);
    EXPECT_TRUE(recording::textures().empty());
    EXPECT_FALSE(m_sprite.deleteTexture());
}

} // namespace
