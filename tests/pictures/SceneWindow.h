// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A real window with a real OpenGL context, and pictures of what is drawn into it.
#pragma once

#include "pictures/Picture.h"
#include "platform/window/OpenGLView.h"
#include "platform/window/Window.h"

#include <functional>
#include <memory>

class SceneWindow
{
public:
    // Opened at the first call and kept: every test of the program draws into it.
    static SceneWindow& shared();

    // pixels; at most the display's. Throws without a display or OpenGL.
    SceneWindow(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }

    // What the function draws, from a black start.
    Picture draw(std::function<void(int width, int height)> const& render);

private:
    int m_width;
    int m_height;
    std::unique_ptr<platform::OpenGLView> m_view;
    std::unique_ptr<platform::Window> m_window;
};
