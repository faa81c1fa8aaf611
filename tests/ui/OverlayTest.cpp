// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "ui/Overlay.h"

#include "platform/base/OpenGL.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <limits>

namespace
{

using probe::TextOf;
using recording::call;
using testing::ElementsAreArray;

class OverlayTest : public testing::Test
{
protected:
    OverlayTest() { recording::reset(); }

    std::string timer(int seconds)
    {
        m_overlay.SetStringTimer(seconds);
        return TextOf(m_overlay);
    }

    Overlay m_overlay{30, 40, 20, "Helvetica"};
};

TEST_F(OverlayTest, StartsEmptyInPaleBlueWithAFrame)
{
    StringTexture const& texture = m_overlay.GetTexture();
    EXPECT_EQ(TextOf(m_overlay), "");
    EXPECT_EQ(texture.textColor(), (platform::Color{0.8F, 0.8F, 1.0F, 1.0F}));
    EXPECT_EQ(texture.boxColor(), (platform::Color{0.0F, 0.0F, 0.0F, 0.0F}));
    EXPECT_EQ(texture.borderColor(), (platform::Color{0.8F, 0.8F, 1.0F, 1.0F}));
    EXPECT_EQ(probe::FontOf(m_overlay), "Helvetica");
    EXPECT_EQ(probe::FontSizeOf(m_overlay), 20.0F);
    EXPECT_EQ(probe::BoxOf(m_overlay), (probe::Box{30, 40, 0, 0}));
}

TEST_F(OverlayTest, ShowsATextAsItIs)
{
    m_overlay.SetString("  two blanks, and a 100 % sign  ");
    EXPECT_EQ(TextOf(m_overlay), "  two blanks, and a 100 % sign  ");
    EXPECT_EQ(probe::FontSizeOf(m_overlay), 20.0F);
}

TEST_F(OverlayTest, ShowsAFloatWithSixDecimals)
{
    m_overlay.SetString(2.5F);
    EXPECT_EQ(TextOf(m_overlay), "2.500000");
    m_overlay.SetString(-0.125F);
    EXPECT_EQ(TextOf(m_overlay), "-0.125000");
    m_overlay.SetString(std::numeric_limits<float>::max());
    EXPECT_EQ(TextOf(m_overlay), "340282346638528859811704183484516925440.000000");
}

TEST_F(OverlayTest, ShowsAnInt)
{
    m_overlay.SetString(42);
    EXPECT_EQ(TextOf(m_overlay), "42");
    m_overlay.SetString(INT_MIN);
    EXPECT_EQ(TextOf(m_overlay), "-2147483648");
}

TEST_F(OverlayTest, ATimerHasMinutesAndTwoDigitSeconds)
{
    EXPECT_EQ(timer(0), " 0:00 ");
    EXPECT_EQ(timer(75), " 1:15 ");
    EXPECT_EQ(timer(600), "10:00 ");
    EXPECT_EQ(timer(59), " 0:59 ");
    EXPECT_EQ(timer(6000), "100:00 ");
}

TEST_F(OverlayTest, ANegativeTimeIsDividedTowardsZero)
{
    EXPECT_EQ(timer(-75), "-1:-15 ");
}

TEST_F(OverlayTest, ColoursGoToTheTexture)
{
    m_overlay.SetTextColor(0.1F, 0.2F, 0.3F, 0.4F);
    m_overlay.SetBorderColor(0.5F, 0.6F, 0.7F, 0.8F);
    m_overlay.SetBgColor(0.9F, 0.8F, 0.7F, 0.6F);
    StringTexture const& texture = m_overlay.GetTexture();
    EXPECT_EQ(texture.textColor(), (platform::Color{0.1F, 0.2F, 0.3F, 0.4F}));
    EXPECT_EQ(texture.borderColor(), (platform::Color{0.5F, 0.6F, 0.7F, 0.8F}));
    EXPECT_EQ(texture.boxColor(), (platform::Color{0.9F, 0.8F, 0.7F, 0.6F}));
}

TEST_F(OverlayTest, MovingKeepsTheTexture)
{
    m_overlay.SetString("x");
    m_overlay.Render(800, 600);
    unsigned const name = m_overlay.GetTexture().texName();
    m_overlay.MoveTo(-7, 900);
    EXPECT_EQ(m_overlay.GetTexture().texName(), name);
    EXPECT_EQ(probe::BoxOf(m_overlay).x, -7);
    EXPECT_EQ(probe::BoxOf(m_overlay).y, 900);
}

TEST_F(OverlayTest, DimensionsAreThoseOfTheTextureLastDrawn)
{
    m_overlay.SetString("x");
    EXPECT_EQ(probe::BoxOf(m_overlay).width, 0);
    m_overlay.Render(800, 600);
    probe::Box const drawn = probe::BoxOf(m_overlay);
    EXPECT_EQ(drawn.width, static_cast<int>(m_overlay.GetTexture().texSize().width));
    EXPECT_GT(drawn.width, 8);
    m_overlay.SetString("a longer text");
    EXPECT_EQ(probe::BoxOf(m_overlay), drawn) << "measured by the next draw";
}

TEST_F(OverlayTest, DimensionsAreCutToWholePixels)
{
    const_cast<StringTexture&>(m_overlay.GetTexture()).useStaticFrame({12.9F, 7.9F});
    m_overlay.Render(800, 600);
    EXPECT_EQ(probe::BoxOf(m_overlay), (probe::Box{30, 40, 12, 7}));
}

// Sets the state before, draws, and returns the calls.
std::vector<recording::Call> Rendered(Overlay& overlay)
{
    overlay.SetString("x");
    overlay.Render(800, 600); // makes the texture, whose calls are not of interest here
    return recording::during([&] { overlay.Render(800, 600); });
}

TEST_F(OverlayTest, RenderUndoesItsStateInReverse)
{
    recording::setEnabled(GL_DEPTH_TEST, true);
    recording::setInteger(GL_MATRIX_MODE, GL_TEXTURE);
    auto calls = Rendered(m_overlay);
    auto const quad = [](recording::Call const& made)
    {
        return made.name == "glBegin" || made.name == "glEnd" || made.name.starts_with("glTexCoord") ||
               made.name.starts_with("glVertex");
    };
    std::erase_if(calls, quad);
    double const name = m_overlay.GetTexture().texName();
    EXPECT_THAT(calls, ElementsAreArray({
                           call("glIsEnabled", {GL_DEPTH_TEST}),
                           call("glDisable", {GL_DEPTH_TEST}),
                           call("glEnable", {GL_BLEND}),
                           call("glBlendFunc", {GL_ONE, GL_ONE_MINUS_SRC_ALPHA}),
                           call("glEnable", {GL_TEXTURE_RECTANGLE_EXT}),
                           call("glDisable", {GL_LIGHTING}),
                           call("glGetIntegerv", {GL_MATRIX_MODE}),
                           call("glMatrixMode", {GL_PROJECTION}),
                           call("glPushMatrix"),
                           call("glLoadIdentity"),
                           call("gluOrtho2D", {0, 800, 600, 0}),
                           call("glMatrixMode", {GL_MODELVIEW}),
                           call("glPushMatrix"),
                           call("glLoadIdentity"),
                           call("glColor4f", {1, 1, 1, 1}),
                           call("glBindTexture", {GL_TEXTURE_RECTANGLE_EXT, name}),
                           call("glPopMatrix"),
                           call("glMatrixMode", {GL_PROJECTION}),
                           call("glPopMatrix"),
                           call("glMatrixMode", {GL_TEXTURE}),
                           call("glDisable", {GL_TEXTURE_RECTANGLE_EXT}),
                           call("glDisable", {GL_BLEND}),
                           call("glEnable", {GL_LIGHTING}),
                           call("glEnable", {GL_DEPTH_TEST}),
                       }));
}

TEST_F(OverlayTest, TheTextStandsAtItsPlaceFromTheTopLeft)
{
    auto const calls = Rendered(m_overlay);
    probe::Box const box = probe::BoxOf(m_overlay);
    EXPECT_GE(recording::indexOf(calls, call("glVertex2f", {30, 40})), 0);
    EXPECT_GE(recording::indexOf(calls, call("glVertex2f", {30.0 + box.width, 40.0 + box.height})), 0);
}

TEST_F(OverlayTest, DepthTestingThatWasOffStaysOff)
{
    recording::setEnabled(GL_DEPTH_TEST, false);
    Rendered(m_overlay);
    EXPECT_FALSE(recording::isEnabled(GL_DEPTH_TEST));
    recording::setEnabled(GL_DEPTH_TEST, true);
    Rendered(m_overlay);
    EXPECT_TRUE(recording::isEnabled(GL_DEPTH_TEST));
}

TEST_F(OverlayTest, LightingIsOnAfterwardsWhateverItWas)
{
    for (bool const before : {false, true})
    {
        recording::setEnabled(GL_LIGHTING, before);
        Rendered(m_overlay);
        EXPECT_TRUE(recording::isEnabled(GL_LIGHTING));
    }
}

TEST_F(OverlayTest, BlendingAndRectanglesAreOffAfterwards)
{
    recording::setEnabled(GL_BLEND, true);
    Rendered(m_overlay);
    EXPECT_FALSE(recording::isEnabled(GL_BLEND));
    EXPECT_FALSE(recording::isEnabled(GL_TEXTURE_RECTANGLE_EXT));
}

TEST_F(OverlayTest, APendingErrorIsTaken)
{
    recording::setError(GL_INVALID_OPERATION);
    m_overlay.SetString("x");
    m_overlay.Render(800, 600);
    recording::setError(GL_INVALID_OPERATION);
    m_overlay.Render(800, 600); // the texture exists: only the overlay itself calls
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(OverlayTest, TheTextureIsReleasedWithTheOverlay)
{
    {
        Overlay overlay(0, 0, 12, "Courier");
        overlay.Render(800, 600);
        EXPECT_EQ(recording::textures().size(), 1U);
    }
    EXPECT_TRUE(recording::textures().empty());
}

} // namespace
