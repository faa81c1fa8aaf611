// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The OpenGL view of the main window, and the only bridge between the platform and the game: it drives a
// frame from the frame timer, switches between window and full screen, and turns the platform's events into
// the game's.
#pragma once

#include "platform/base/RunLoop.h"
#include "platform/window/OpenGLView.h"
#include "platform/window/Window.h"

#include <memory>

class kGLView : public platform::OpenGLView
{
public:
    ~kGLView() override;

    bool initWithFrame(platform::Rect frame) override;
    void awakeFromNib() override;
    void reshape() override;
    void toggleFullScreen() override;
    bool wantsKey(platform::Event const& key) override;
    bool needsEvenFrames() override;
    void playerDidLeave() override;
    std::u16string keyFor(platform::Control control) override;
    std::optional<platform::Point> clickPlace(int step) override;

    bool acceptsFirstResponder() override { return true; }
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    void keyDown(platform::Event const& event) override { Forward(event); }
    void mouseMoved(platform::Event const& event) override { Forward(event); }
    void mouseUp(platform::Event const& event) override { Forward(event); }
    void scrollWheel(platform::Event const& event) override { Forward(event); }

    // The timer's action: one frame. The first also brings up settings, display mode and game.
    void drawFrame();

    void setFullScreen(bool fullScreen);

private:
    static void Forward(platform::Event const& event);
    void FirstFrame();
    void EnterFullScreen();
    void LeaveFullScreen();
    int PixelsWide() const { return static_cast<int>(frame().size.width); }
    int PixelsHigh() const { return static_cast<int>(frame().size.height); }

    std::unique_ptr<platform::Window> FullScreenWindow; // null while the view is in its starting window
    platform::Window* StartingWindow = nullptr;         // of the interface file
    std::shared_ptr<platform::Timer> nstime;
};
