// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "pictures/SceneWindow.h"

#include "platform/base/OpenGL.h"
#include "support/window/PassiveView.h"

#include <stdexcept>

SceneWindow& SceneWindow::shared()
{
    // Never closed: OpenGL objects of static lifetime are released after main().
    static auto* const window = new SceneWindow(640, 480);
    return *window;
}

SceneWindow::SceneWindow(int width, int height)
    : m_width(width),
      m_height(height),
      m_view(std::make_unique<PassiveView>())
{
    platform::Rect const content{{}, {static_cast<float>(width), static_cast<float>(height)}};
    bool const hasContext = m_view->initWithFrame(content);
    m_window = hasContext ? platform::Window::initWithContentSize(content.size) : nullptr;
    if (!m_window)
    {
        throw std::runtime_error("no window to draw into");
    }
    m_window->setContentView(m_view.get());
    m_window->makeKeyAndOrderFront();
}

Picture SceneWindow::draw(std::function<void(int width, int height)> const& render)
{
    glViewport(0, 0, m_width, m_height);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    render(m_width, m_height);
    Picture picture(m_width, m_height);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    for (int row = 0; row < m_height; ++row)
    {
        glReadPixels(0, m_height - 1 - row, m_width, 1, GL_RGB, GL_UNSIGNED_BYTE, picture.row(row));
    }
    m_view->openGLContext()->flushBuffer();
    return picture;
}
