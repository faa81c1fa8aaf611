// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "bench/BenchWindow.h"

#include "platform/base/OpenGL.h"
#include "platform/window/Display.h"
#include "tests/support/window/PassiveView.h"

std::unique_ptr<BenchWindow> BenchWindow::open()
{
    if (!platform::OpenDisplay())
    {
        return nullptr;
    }
    platform::Rect const frame{{}, {kWidth, kHeight}};
    auto view = std::make_unique<PassiveView>();
    std::unique_ptr<BenchWindow> bench(new BenchWindow);
    if (!view->initWithFrame(frame))
    {
        return nullptr;
    }
    bench->m_view = std::move(view);
    bench->m_window = platform::Window::initWithContentSize(frame.size);
    if (!bench->m_window)
    {
        return nullptr;
    }
    bench->m_window->setContentView(bench->m_view.get());
    bench->m_window->makeKeyAndOrderFront();
    bench->m_view->openGLContext()->setWaitsForDisplay(false);
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
