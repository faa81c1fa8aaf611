// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A view with the game's pixel format that only shows what others draw. Tests and benchmarks of pictures open
// their windows with it; TestView notes what it is told besides.
#pragma once

#include "platform/window/OpenGLView.h"

class PassiveView : public platform::OpenGLView
{
public:
    bool initWithFrame(platform::Rect frame) override
    {
        return initWithPixelFormat(frame, {.colorSize = 32, .depthSize = 32});
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
