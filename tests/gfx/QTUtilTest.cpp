// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/QTUtil.h"

#include "gfx/QTImage.h"
#include "platform/base/OpenGL.h"
#include "support/CapturedLog.h"
#include "support/gl/RecordingGL.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace
{

using recording::call;
using testing::ElementsAre;

class QTUtil : public testing::Test
{
protected:
    QTUtil() { recording::reset(); }
};

TEST_F(QTUtil, ATextureIsUploadedAsBgraWithLinearFiltersAndRepeat)
{
    unsigned long texture = 0;
    recording::start();
    EXPECT_EQ(QTLoadAsTexture(&texture, "roid-128.jpg"), 0);
    auto const name = static_cast<double>(texture);
    EXPECT_THAT(recording::stop(),
                ElementsAre(call("glGenTextures", {1}), call("glBindTexture", {GL_TEXTURE_2D, name}),
                            call("glPixelStorei", {GL_UNPACK_ALIGNMENT, 4}),
                            call("glTexImage2D", {GL_TEXTURE_2D, 0, GL_RGBA, 128, 128, 0, GL_BGRA,
                                                  GL_UNSIGNED_INT_8_8_8_8_REV}),
                            call("glPixelStorei", {GL_UNPACK_ALIGNMENT, 4}),
                            call("glTexParameterf", {GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR}),
                            call("glTexParameterf", {GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR}),
                            call("glTexParameterf", {GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT}),
                            call("glTexParameterf", {GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT})));
    EXPECT_THAT(recording::errorChecks(), ElementsAre(2, 5, 9));
    EXPECT_TRUE(recording::textures().contains(static_cast<unsigned>(texture)));
    ASSERT_EQ(recording::uploads().size(), 1U);
    std::vector<std::uint8_t> const& uploaded = recording::uploads()[0].pixels;
    ASSERT_EQ(uploaded.size(), 128U * 128U * 4U);
    auto const picture = QTImage::imageWithName("roid-128.jpg");
    ASSERT_TRUE(picture && picture->CreateImageWithBitdepth(32));
    EXPECT_EQ(std::memcmp(uploaded.data(), picture->GetPixels(), uploaded.size()), 0);
}

TEST_F(QTUtil, AMissingPictureIsLoggedAndLeavesAnEmptyName)
{
    unsigned long texture = 0;
    CapturedLog log;
    auto const calls =
        recording::during([&] { EXPECT_EQ(QTLoadAsTexture(&texture, "no-such-picture.jpg"), -1); });
    EXPECT_THAT(calls, ElementsAre(call("glGenTextures", {1})));
    EXPECT_THAT(log.lines(), ElementsAre("Unable to load texture no-such-picture.jpg"));
    EXPECT_TRUE(recording::textures().contains(static_cast<unsigned>(texture)));
}

TEST_F(QTUtil, PicturesDecodedAheadAreTheSame)
{
    CapturedLog log;
    QTDecodeAhead({"starfield-1024.jpg", "roid-128.jpg", "lost.jpg"});
    unsigned long texture = 0;
    recording::start();
    for (char const* name : {"roid-128.jpg", "roid-128.jpg", "starfield-1024.jpg", "starfield-1024.jpg"})
    {
        EXPECT_EQ(QTLoadAsTexture(&texture, name), 0);
    }
    auto const& uploads = recording::uploads();
    ASSERT_EQ(uploads.size(), 4U);
    EXPECT_EQ(uploads[0].pixels, uploads[1].pixels);
    EXPECT_EQ(uploads[2].pixels, uploads[3].pixels);
    EXPECT_NE(uploads[0].pixels, uploads[2].pixels);
    EXPECT_EQ(QTLoadAsTexture(&texture, "lost.jpg"), -1);
    EXPECT_THAT(log.lines(), ElementsAre("Unable to load texture lost.jpg"));
}

TEST_F(QTUtil, AMissingPictureIsLoggedEachTimeThatItIsWanted)
{
    unsigned long texture = 0;
    CapturedLog log;
    EXPECT_EQ(QTLoadAsTexture(&texture, "wanted-twice.jpg"), -1);
    EXPECT_EQ(QTLoadAsTexture(&texture, "wanted-twice.jpg"), -1);
    EXPECT_THAT(log.lines(), ElementsAre("Unable to load texture wanted-twice.jpg",
                                         "Unable to load texture wanted-twice.jpg"));
}

TEST_F(QTUtil, AnErrorOfOpenGLIsTakenAlong)
{
    unsigned long texture = 0;
    recording::setError(GL_OUT_OF_MEMORY);
    EXPECT_EQ(QTLoadAsTexture(&texture, "roid-128.jpg"), 0);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(QTUtil, TheLogGetsTheText)
{
    CapturedLog log;
    QTUtilLog("a line of 100 % plain text");
    EXPECT_THAT(log.lines(), ElementsAre("a line of 100 % plain text"));
}

} // namespace
