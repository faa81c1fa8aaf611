// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Windows on an X display whose desktop tells a density.
#include "platform/input/MouseTranslation.h"
#include "platform/window/Display.h"
#include "platform/window/GLContext.h"
#include "platform/window/TestView.h"
#include "platform/window/Window.h"

#include <gtest/gtest.h>
#include <SDL.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <memory>
#include <string>
#include <utility>

namespace
{

using platform::Window;

// What a desktop tells the programs that are started from now on.
void WriteResources(std::string const& text)
{
    Display* const display = XOpenDisplay(nullptr);
    XChangeProperty(display, DefaultRootWindow(display), XA_RESOURCE_MANAGER, XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<unsigned char const*>(text.data()), static_cast<int>(text.size()));
    XCloseDisplay(display);
}

int ScaleOfNewWindow()
{
    EXPECT_TRUE(platform::OpenDisplay());
    int const scale = platform::PixelsOf(platform::MakeRawWindow({0, 0, 10, 10}, 0).get()).scale;
    platform::CloseDisplay();
    return scale;
}

// Each connection to the display reads the resources once.
class DisplayScaleTest : public testing::Test
{
protected:
    void SetUp() override { platform::CloseDisplay(); }
    void TearDown() override
    {
        WriteResources("");
        platform::CloseDisplay();
    }
};

TEST_F(DisplayScaleTest, IsTheDotsToAnInchOver96Rounded)
{
    EXPECT_EQ(ScaleOfNewWindow(), 1);
    for (auto const& [dpi, scale] :
         {std::pair{"96", 1}, {"143", 1}, {"144", 2}, {"192", 2}, {"239.9", 2}, {"288", 3}})
    {
        WriteResources(std::string("Xft.dpi:\t") + dpi + "\n");
        EXPECT_EQ(ScaleOfNewWindow(), scale) << dpi;
    }
}

TEST_F(DisplayScaleTest, StaysWithinSenseWhateverTheResourceSays)
{
    for (auto const& [dpi, scale] :
         {std::pair{"1", 1}, {"0", 1}, {"-192", 1}, {"much", 1}, {"nan", 1}, {"1e300", 8}})
    {
        WriteResources(std::string("Xft.dpi:\t") + dpi + "\n");
        EXPECT_EQ(ScaleOfNewWindow(), scale) << dpi;
    }
}

// A view of 640 x 480 in a window on a display of twice the usual density.
class DenseWindowTest : public DisplayScaleTest
{
protected:
    void SetUp() override
    {
        DisplayScaleTest::SetUp();
        WriteResources("Xft.dpi:\t192\n");
        m_view = std::make_unique<TestView>();
        ASSERT_TRUE(m_view->initWithFrame({{}, {640.0F, 480.0F}}));
        m_window = Window::initWithContentSize({640.0F, 480.0F});
        ASSERT_TRUE(m_window->setContentView(m_view.get()));
        m_window->makeKeyAndOrderFront();
    }

    void TearDown() override
    {
        m_window.reset();
        m_view.reset();
        DisplayScaleTest::TearDown();
    }

    void expectFrame(float width, float height)
    {
        EXPECT_EQ(m_view->frame().size.width, width);
        EXPECT_EQ(m_view->frame().size.height, height);
    }

    void expectGamePixel(int x, int y, float right, float up)
    {
        platform::Point const pixel = m_window->pixelsFromWindow(x, y);
        EXPECT_EQ(pixel.x, right) << x << ", " << y;
        EXPECT_EQ(pixel.y, up) << x << ", " << y;
    }

    void resize(int width, int height)
    {
        SDL_SetWindowSize(SDL_GetWindowFromID(m_window->identifier()), width, height);
        m_window->drawableSizeChanged();
    }

    std::unique_ptr<TestView> m_view;
    std::unique_ptr<Window> m_window;
};

TEST_F(DenseWindowTest, WindowIsAsManyTimesAsLargeAsItsView)
{
    int width = 0;
    int height = 0;
    SDL_GL_GetDrawableSize(SDL_GetWindowFromID(m_window->identifier()), &width, &height);
    EXPECT_EQ(width, 1280);
    EXPECT_EQ(height, 960);
    expectFrame(640.0F, 480.0F);
    EXPECT_EQ(platform::DisplayScale(), 2);
}

TEST_F(DenseWindowTest, FullScreenHasAViewOfHalfTheScreen)
{
    auto const full = Window::initOverMainScreen();
    ASSERT_TRUE(full->setContentView(m_view.get()));
    full->makeKeyAndOrderFront();
    expectFrame(640.0F, 360.0F); // of 1280 x 720
    EXPECT_EQ(platform::DisplayScale(), 2);
    m_window->setContentView(m_view.get());
    expectFrame(640.0F, 480.0F);
}

TEST_F(DenseWindowTest, EveryDisplayPixelOfAGamePixelIsThatPixel)
{
    for (int const offset : {0, 1})
    {
        expectGamePixel(0 + offset, 0 + offset, 0.0F, 480.0F);
        expectGamePixel(20 + offset, 8 + offset, 10.0F, 476.0F);
        expectGamePixel(1278 + offset, 958 + offset, 639.0F, 1.0F);
    }
}

TEST_F(DenseWindowTest, OddWindowHasAGamePixelMore)
{
    resize(801, 601);
    expectFrame(401.0F, 301.0F);
    expectGamePixel(800, 0, 400.0F, 301.0F);
    expectGamePixel(799, 1, 399.0F, 300.0F);
    expectGamePixel(0, 600, 0.0F, 1.0F);
    resize(1, 1);
    expectFrame(1.0F, 1.0F);
}

TEST_F(DenseWindowTest, MovesOfThePointerAreCountedInGamePixels)
{
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = 21;
    event.motion.y = 8;
    event.motion.xrel = 6;
    event.motion.yrel = -1;
    auto const moved =
        platform::TranslateMouse(event, [this](int x, int y) { return m_window->pixelsFromWindow(x, y); });
    ASSERT_TRUE(moved.has_value());
    EXPECT_EQ(moved->locationInWindow.x, 10.0F);
    EXPECT_EQ(moved->locationInWindow.y, 476.0F);
    EXPECT_EQ(moved->mouseDeltaX, 3);
    EXPECT_EQ(moved->mouseDeltaY, 0);
}

} // namespace
