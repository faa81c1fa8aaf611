// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "bench/BenchWindow.h"

#include "platform/Display.h"
#include "platform/OpenGL.h"

namespace
{

// Shows what is drawn, and hears nothing.
class SilentView : public platform::OpenGLView
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

std::unique_ptr<BenchWindow> BenchWindow::open()
{
    if (!platform::OpenDisplay())
    {
        return nullptr;
    }
    platform::Rect const frame{{}, {kWidth, kHeight}};
    auto view = std::make_unique<SilentView>();
    std::unique_ptr<BenchWindow> bench(new BenchWindow);
    if (!view->initWithFrame(frame))
    {
        return nullptr;
    }
    bench->m_view = std::move(view);
    bench->m_window = platform::Window::initWithContentRect(frame, platform::WindowStyle::Titled);
    if (!bench->m_window)
    {
        return nullptr;
    }
    bench->m_window->setContentView(bench->m_view.get());
    bench->m_window->makeKeyAndOrderFront();
    return bench;
}

BenchWindow::~BenchWindow()
{
    m_window.reset();
    m_view.reset();
    platform::CloseDisplay();
}

void BenchWindow::show() const
{
    m_view->openGLContext()->flushBuffer();
    glFinish();
}
