// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A real window with a real OpenGL context, and pictures of what is drawn into it.
#pragma once

#include "pictures/Picture.h"
#include "platform/OpenGLView.h"
#include "platform/Window.h"

#include <functional>
#include <memory>

class SceneWindow
{
public:
    // Opened at the first call and kept: every test of the program draws into it.
    static SceneWindow& shared();

    int width() const { return kWidth; }   // pixels
    int height() const { return kHeight; } // pixels

    // What the function draws, from a black start.
    Picture draw(std::function<void(int width, int height)> const& render);

private:
    static constexpr int kWidth = 640;
    static constexpr int kHeight = 480;

    SceneWindow();

    std::unique_ptr<platform::OpenGLView> m_view;
    std::unique_ptr<platform::Window> m_window;
};
