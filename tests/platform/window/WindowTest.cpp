// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Real windows on a display without a window manager, and the one context that draws into them.
#include "platform/window/Window.h"

#include "platform/base/Clock.h"
#include "platform/base/OpenGL.h"
#include "platform/window/GLContext.h"
#include "platform/window/TestView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <SDL.h>

#include <array>

namespace
{

using platform::Event;
using platform::EventType;
using platform::Window;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr platform::Rect kContent{{0.0F, 0.0F}, {640.0F, 480.0F}};

SDL_Window* Underlying(Window const& window)
{
    return SDL_GetWindowFromID(window.identifier());
}

bool IsShown(Window const& window)
{
    return (SDL_GetWindowFlags(Underlying(window)) & SDL_WINDOW_SHOWN) != 0;
}

double SecondsOfFrames(TestView const& view, int count)
{
    std::uint64_t const begin = platform::UpTime();
    for (int i = 0; i < count; ++i)
    {
        view.openGLContext()->flushBuffer();
    }
    return platform::SecondsBetween(begin, platform::UpTime());
}

// A view in a titled window.
class WindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_view.initWithFrame(kContent));
        m_window = Window::initWithContentSize(kContent.size);
        ASSERT_TRUE(m_window);
        m_window->setContentView(&m_view);
    }

    std::unique_ptr<Window> showFullScreen()
    {
        auto full = Window::initOverMainScreen();
        full->setContentView(&m_view);
        full->makeKeyAndOrderFront();
        m_window->orderOut();
        return full;
    }

    void showWindowed()
    {
        m_window->setContentView(&m_view);
        m_window->makeKeyAndOrderFront();
    }

    TestView m_view;
    std::unique_ptr<Window> m_window; // destroyed before the view, whose context draws into it
};

// Software OpenGL has no swap interval, and the virtual display tells no rate.
TEST_F(WindowTest, FramesAreSixtyASecondWhereTheDriverDoesNotWait)
{
    showWindowed();
    EXPECT_GE(SecondsOfFrames(m_view, 20), 18.9 / 60.0);
}

TEST_F(WindowTest, FramesCanBeShownWithoutWaiting)
{
    m_view.openGLContext()->setWaitsForDisplay(false);
    showWindowed();
    EXPECT_LT(SecondsOfFrames(m_view, 60), 59.0 / 60.0);
}

TEST_F(WindowTest, IdentifierLeadsBackToTheWindow)
{
    unsigned const identifier = m_window->identifier();
    EXPECT_EQ(Window::withIdentifier(identifier), m_window.get());
    m_window.reset();
    EXPECT_EQ(Window::withIdentifier(identifier), nullptr);
    EXPECT_EQ(Window::withIdentifier(0), nullptr);
}

TEST_F(WindowTest, HiddenUntilItIsOrderedToTheFront)
{
    EXPECT_FALSE(IsShown(*m_window));
    m_window->makeKeyAndOrderFront();
    EXPECT_TRUE(IsShown(*m_window));
    m_window->orderOut();
    EXPECT_FALSE(IsShown(*m_window));
}

TEST_F(WindowTest, TitleIsShown)
{
    m_window->setTitle("Quarrow test");
    EXPECT_STREQ(SDL_GetWindowTitle(Underlying(*m_window)), "Quarrow test");
}

TEST_F(WindowTest, ViewIsShapedOnceByItsFirstWindow)
{
    ASSERT_EQ(m_view.shapes.size(), 1U);
    EXPECT_EQ(m_view.shapes[0].width, 640.0F);
    EXPECT_EQ(m_view.shapes[0].height, 480.0F);
    m_window->drawableSizeChanged();
    EXPECT_EQ(m_view.shapes.size(), 1U);
}

TEST_F(WindowTest, ResizeReshapesTheView)
{
    m_window->makeKeyAndOrderFront();
    SDL_SetWindowSize(Underlying(*m_window), 800, 500);
    m_window->drawableSizeChanged();
    EXPECT_EQ(m_view.frame().size.width, 800.0F);
    EXPECT_EQ(m_view.frame().size.height, 500.0F);
    EXPECT_EQ(m_view.shapes.size(), 2U);
}

TEST_F(WindowTest, ViewHasAPixelHoweverSmallItsWindow)
{
    for (platform::Size const size : {platform::Size{640.0F, 0.0F}, platform::Size{0.0F, 0.0F}})
    {
        auto const window = Window::initWithContentSize(size);
        ASSERT_NE(window, nullptr);
        window->setContentView(&m_view);
        EXPECT_GE(m_view.frame().size.width, 1.0F);
        EXPECT_GE(m_view.frame().size.height, 1.0F);
        m_window->setContentView(&m_view);
    }
}

TEST_F(WindowTest, FullScreenWindowCoversTheWholeScreen)
{
    SDL_Rect screen{};
    ASSERT_EQ(SDL_GetDisplayBounds(0, &screen), 0);
    auto const full = showFullScreen();
    int x = -1;
    int y = -1;
    SDL_GetWindowPosition(Underlying(*full), &x, &y);
    EXPECT_EQ(x, screen.x);
    EXPECT_EQ(y, screen.y);
    EXPECT_EQ(m_view.frame().size.width, static_cast<float>(screen.w));
    EXPECT_EQ(m_view.frame().size.height, static_cast<float>(screen.h));
}

TEST_F(WindowTest, ContextDrawsIntoTheWindowThatShowsTheView)
{
    EXPECT_EQ(SDL_GL_GetCurrentWindow(), Underlying(*m_window));
    auto const full = showFullScreen();
    EXPECT_EQ(SDL_GL_GetCurrentWindow(), Underlying(*full));
    EXPECT_EQ(m_view.window(), full.get());
    showWindowed();
    EXPECT_EQ(SDL_GL_GetCurrentWindow(), Underlying(*m_window));
}

TEST_F(WindowTest, TexturesOutliveAnyNumberOfSwitches)
{
    std::array<unsigned char, 4> const texel{10, 20, 30, 255};
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, texel.data());
    auto const context = platform::CurrentGLContext();
    for (int i = 0; i < 20; ++i)
    {
        auto const full = showFullScreen();
        m_view.openGLContext()->flushBuffer();
        showWindowed();
    }
    EXPECT_EQ(platform::CurrentGLContext(), context);
    std::array<unsigned char, 4> read{};
    glBindTexture(GL_TEXTURE_2D, texture);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, read.data());
    EXPECT_EQ(read, texel);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(WindowTest, ContextStaysUsableWhenItsWindowCloses)
{
    auto full = showFullScreen();
    full.reset();
    EXPECT_EQ(m_view.window(), nullptr);
    EXPECT_NE(platform::CurrentGLContext(), nullptr);
    glClearColor(0.0F, 1.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    std::array<unsigned char, 4> pixel{};
    glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    EXPECT_EQ(pixel[1], 255);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(WindowTest, PixelsCountFromTheBottomLeft)
{
    auto const top = m_window->pixelsFromWindow(0, 0);
    EXPECT_EQ(top.x, 0.0F);
    EXPECT_EQ(top.y, 480.0F);
    auto const other = m_window->pixelsFromWindow(10, 470);
    EXPECT_EQ(other.x, 10.0F);
    EXPECT_EQ(other.y, 10.0F);
}

void SendOneOfEachKind(Window& window)
{
    for (EventType const type :
         {EventType::LeftMouseUp, EventType::RightMouseUp, EventType::MouseMoved, EventType::LeftMouseDragged,
          EventType::RightMouseDragged, EventType::KeyDown, EventType::KeyUp, EventType::ScrollWheel,
          EventType::OtherMouseDragged})
    {
        Event event;
        event.type = type;
        window.sendEvent(event);
    }
}

TEST_F(WindowTest, FirstResponderIsAskedToTakeTheKeyboardOnce)
{
    EXPECT_TRUE(m_window->makeFirstResponder(&m_view));
    EXPECT_TRUE(m_window->makeFirstResponder(&m_view));
    EXPECT_THAT(m_view.told, ElementsAre("become"));
}

TEST_F(WindowTest, ViewThatRefusesTheKeyboardIsNoResponder)
{
    m_view.accepts = false;
    EXPECT_FALSE(m_window->makeFirstResponder(&m_view));
    SendOneOfEachKind(*m_window);
    EXPECT_THAT(m_view.told, IsEmpty());
}

TEST_F(WindowTest, ResponderMayKeepTheKeyboard)
{
    m_window->makeFirstResponder(&m_view);
    m_view.resigns = false;
    EXPECT_FALSE(m_window->makeFirstResponder(nullptr));
    m_window->sendEvent(Event{});
    EXPECT_THAT(m_view.told, ElementsAre("become", "resign", "keyDown"));
    m_view.resigns = true;
    EXPECT_TRUE(m_window->makeFirstResponder(nullptr));
    m_window->sendEvent(Event{});
    EXPECT_THAT(m_view.told, ElementsAre("become", "resign", "keyDown", "resign"));
}

TEST_F(WindowTest, ViewThatMovesToAnotherWindowRespondsThereOnly)
{
    m_window->makeFirstResponder(&m_view);
    auto const full = showFullScreen();
    m_window->sendEvent(Event{});
    EXPECT_THAT(m_view.told, ElementsAre("become"));
    EXPECT_TRUE(full->makeFirstResponder(&m_view));
    full->sendEvent(Event{});
    EXPECT_THAT(m_view.told, ElementsAre("become", "become", "keyDown"));
}

TEST_F(WindowTest, FourKindsOfEventsReachTheView)
{
    m_window->makeFirstResponder(&m_view);
    m_window->setAcceptsMouseMovedEvents(true);
    m_view.told.clear();
    SendOneOfEachKind(*m_window);
    EXPECT_THAT(m_view.told, ElementsAre("mouseUp", "mouseMoved", "keyDown", "scrollWheel"));
}

TEST_F(WindowTest, PlainMovesAreSentOnlyOnRequest)
{
    m_window->makeFirstResponder(&m_view);
    m_view.told.clear();
    SendOneOfEachKind(*m_window);
    EXPECT_THAT(m_view.told, ElementsAre("mouseUp", "keyDown", "scrollWheel"));
}

TEST_F(WindowTest, WithoutAResponderNothingIsSent)
{
    SendOneOfEachKind(*m_window);
    EXPECT_THAT(m_view.told, IsEmpty());
}

TEST_F(WindowTest, ContextHasTheDepthThatTheDriverCanGive)
{
    GLint depth = 0;
    glGetIntegerv(GL_DEPTH_BITS, &depth);
    EXPECT_GE(depth, 16);
    GLint red = 0;
    glGetIntegerv(GL_RED_BITS, &red);
    EXPECT_EQ(red, 8);
    GLboolean isDouble = GL_FALSE;
    glGetBooleanv(GL_DOUBLEBUFFER, &isDouble);
    EXPECT_EQ(isDouble, GL_TRUE);
}

TEST_F(WindowTest, TextureIsDeletedInItsContextWhicheverIsCurrent)
{
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    auto const owner = platform::CurrentGLContext();
    TestView other;
    ASSERT_TRUE(other.initWithFrame(kContent));
    auto const current = platform::CurrentGLContext();
    ASSERT_NE(current, owner);
    GLuint bystander = 0; // has the same name as the texture of the first context
    glGenTextures(1, &bystander);
    glBindTexture(GL_TEXTURE_2D, bystander);

    platform::DeleteTextureInContext(owner, texture);
    EXPECT_EQ(platform::CurrentGLContext(), current);
    EXPECT_TRUE(glIsTexture(bystander));
    m_view.openGLContext()->makeCurrentContext();
    EXPECT_FALSE(glIsTexture(texture));
}

TEST_F(WindowTest, DeletingATextureOfALostContextDoesNothing)
{
    platform::GLContextRef lost = nullptr;
    {
        TestView other;
        ASSERT_TRUE(other.initWithFrame(kContent));
        lost = platform::CurrentGLContext();
    }
    m_view.openGLContext()->makeCurrentContext();
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    platform::DeleteTextureInContext(lost, texture);
    platform::DeleteTextureInContext(nullptr, texture);
    EXPECT_TRUE(glIsTexture(texture));
}

} // namespace
