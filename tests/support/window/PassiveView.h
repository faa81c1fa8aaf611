// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A view with the game's pixel format, which ignores all events and draws nothing itself.
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
    bool wantsKey(platform::Event const&) override { return false; }
    bool needsEvenFrames() override { return false; }
    void playerDidLeave() override {}
    std::u16string keyFor(platform::Control) override { return {}; }
    std::optional<platform::Point> clickPlace(int) override { return std::nullopt; }
    bool acceptsFirstResponder() override { return false; }
    bool becomeFirstResponder() override { return false; }
    bool resignFirstResponder() override { return true; }
    void keyDown(platform::Event const&) override {}
    void mouseMoved(platform::Event const&) override {}
    void mouseUp(platform::Event const&) override {}
    void scrollWheel(platform::Event const&) override {}
};
