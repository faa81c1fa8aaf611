// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A window of 1280 x 720 to draw whole frames in.
#pragma once

#include "platform/window/OpenGLView.h"
#include "platform/window/Window.h"

#include <memory>

class BenchWindow
{
public:
    static constexpr int kWidth = 1280;
    static constexpr int kHeight = 720;

    // Null when there is no display or no OpenGL. The context is current from then on.
    static std::unique_ptr<BenchWindow> open();
    ~BenchWindow();

    // Shows what was drawn, and waits until it is on the display.
    void show() const;

private:
    BenchWindow() = default;

    std::unique_ptr<platform::OpenGLView> m_view;
    std::unique_ptr<platform::Window> m_window;
};
