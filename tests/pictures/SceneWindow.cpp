// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "pictures/SceneWindow.h"

#include "platform/OpenGL.h"

#include <stdexcept>

namespace
{

// Only shows: the tests draw, and no events come.
class PassiveView : public platform::OpenGLView
{
public:
    bool initWithFrame(platform::Rect frame) override
    {
        constexpr unsigned kAttributes[] = {platform::kPixelFormatDoubleBuffer,
                                            platform::kPixelFormatColorSize,
                                            32,
                                            platform::kPixelFormatDepthSize,
                                            32,
                                            0};
        auto const format = platform::PixelFormat::initWithAttributes(kAttributes);
        return format && initWithPixelFormat(frame, *format);
    }
    void awakeFromNib() override {}
    void reshape() override {}
    void toggleFullScreen() override {}
    bool acceptsFirstResponder() override { return false; }
    bool becomeFirstResponder() override { return false; }
    bool resignFirstResponder() override { return true; }
    void keyDown(platform::Event const&) override {}
    void mouseMoved(platform::Event const&) override {}
    void mouseUp(platform::Event const&) override {}
    void scrollWheel(platform::Event const&) override {}
};

} // namespace

SceneWindow& SceneWindow::shared()
{
    // Never closed: OpenGL objects of static lifetime may outlast main().
    static auto* const window = new SceneWindow;
    return *window;
}

SceneWindow::SceneWindow() : m_view(std::make_unique<PassiveView>())
{
    platform::Rect const content{{}, {kWidth, kHeight}};
    bool const hasContext = m_view->initWithFrame(content);
    m_window =
        hasContext ? platform::Window::initWithContentRect(content, platform::WindowStyle::Titled) : nullptr;
    if (!m_window)
    {
        throw std::runtime_error("no window to draw into");
    }
    m_window->setContentView(m_view.get());
    m_window->makeKeyAndOrderFront();
}

Picture SceneWindow::draw(std::function<void(int width, int height)> const& render)
{
    glViewport(0, 0, kWidth, kHeight);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    render(kWidth, kHeight);
    Picture picture(kWidth, kHeight);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    for (int row = 0; row < kHeight; ++row)
    {
        glReadPixels(0, kHeight - 1 - row, kWidth, 1, GL_RGB, GL_UNSIGNED_BYTE, picture.row(row));
    }
    m_view->openGLContext()->flushBuffer();
    return picture;
}
