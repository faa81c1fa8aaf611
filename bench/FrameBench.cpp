// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// quarrow_frame_bench: whole frames of a race, from tick to the picture on the display, and whole new races,
// in a real window of 1280 x 720. Runs under tests/support/with-display.
#include "bench/Viewpoint.h"
#include "core/Game.h"
#include "platform/Display.h"
#include "platform/OpenGL.h"
#include "platform/OpenGLView.h"
#include "platform/Random.h"
#include "platform/Window.h"
#include "settings/GameSettings.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace
{

constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr unsigned kSeed = 2026;

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

void StartRace()
{
    platform::SeedRandom(kSeed);
    Game::pGame->SwitchToState(kStateMenu);
    Game::pGame->SwitchToState(kStatePlaying);
}

void ShowFrame(platform::OpenGLContext& context)
{
    Game::pGame->Tick();
    Game::pGame->Render(kWidth, kHeight);
    context.flushBuffer();
    glFinish();
}

void Frame(benchmark::State& state, platform::OpenGLContext* context, Viewpoint const& viewpoint)
{
    StartRace();
    LookFrom(viewpoint, *Game::pGame->GetUniverse()->GetCamera());
    ShowFrame(*context); // the driver's own first-time work
    for ([[maybe_unused]] auto const _ : state)
    {
        ShowFrame(*context);
    }
}

void NewRace(benchmark::State& state, platform::OpenGLContext* context)
{
    for ([[maybe_unused]] auto const _ : state)
    {
        StartRace();
        ShowFrame(*context);
    }
}

void ChangedLine(benchmark::State& state)
{
    Overlay overlay(10, 10, 20, "Courier");
    int seconds = 0;
    for ([[maybe_unused]] auto const _ : state)
    {
        overlay.SetStringTimer(seconds++ % 3600);
        overlay.Render(kWidth, kHeight);
    }
    glFinish();
}

void RegisterAll(platform::OpenGLContext* context)
{
    benchmark::RegisterBenchmark("frame race/new", NewRace, context)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("text/changed line", ChangedLine)->Unit(benchmark::kMicrosecond);
    for (Viewpoint const& viewpoint : Viewpoints())
    {
        benchmark::RegisterBenchmark(("frame/" + Name(viewpoint)).c_str(), Frame, context, viewpoint)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
}

int RunInWindow()
{
    platform::Rect const frame{{}, {kWidth, kHeight}};
    SilentView view;
    if (!view.initWithFrame(frame))
    {
        return 1;
    }
    auto const window = platform::Window::initWithContentRect(frame, platform::WindowStyle::Titled);
    if (!window)
    {
        return 1;
    }
    window->setContentView(&view);
    window->makeKeyAndOrderFront();
    benchmark::AddCustomContext("OpenGL", reinterpret_cast<char const*>(glGetString(GL_RENDERER)));

    Game::Init(kWidth, kHeight);
    std::unique_ptr<Game> const game(Game::pGame);
    RegisterAll(view.openGLContext());
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    GameSettings::Initialize();
    benchmark::Initialize(&argc, argv);
    if (!platform::OpenDisplay())
    {
        return 1;
    }
    int const status = RunInWindow();
    benchmark::Shutdown();
    platform::CloseDisplay();
    return status;
}
