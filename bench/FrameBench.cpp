// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// quarrow_frame_bench: whole frames of a race, from tick to the picture on the display, and whole new races,
// in a real window of 1280 x 720. Runs under tests/support/with-display.
#include "bench/BenchWindow.h"
#include "bench/Viewpoint.h"
#include "core/Game.h"
#include "platform/base/OpenGL.h"
#include "platform/base/Random.h"
#include "settings/GameSettings.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace
{

constexpr unsigned kSeed = 2026;

void StartRace()
{
    platform::SeedRandom(kSeed);
    Game::pGame->SwitchToState(kStateMenu);
    Game::pGame->SwitchToState(kStatePlaying);
}

void ShowFrame(BenchWindow const& window)
{
    Game::pGame->Tick();
    Game::pGame->Render(BenchWindow::kWidth, BenchWindow::kHeight);
    window.show();
}

void Frame(benchmark::State& state, BenchWindow const* window, Viewpoint const& viewpoint)
{
    StartRace();
    LookFrom(viewpoint, *Game::pGame->GetUniverse()->GetCamera());
    ShowFrame(*window); // the driver compiles its shaders at the first frame
    for ([[maybe_unused]] auto const _ : state)
    {
        ShowFrame(*window);
    }
}

void NewRace(benchmark::State& state, BenchWindow const* window)
{
    for ([[maybe_unused]] auto const _ : state)
    {
        StartRace();
        ShowFrame(*window);
    }
}

void ChangedLine(benchmark::State& state)
{
    Overlay overlay(10, 10, 20, "Courier");
    int seconds = 0;
    for ([[maybe_unused]] auto const _ : state)
    {
        overlay.SetStringTimer(seconds++ % 3600);
        overlay.Render(BenchWindow::kWidth, BenchWindow::kHeight);
    }
    glFinish();
}

void RegisterAll(BenchWindow const* window)
{
    benchmark::RegisterBenchmark("frame race/new", NewRace, window)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
    benchmark::RegisterBenchmark("text/changed line", ChangedLine)->Unit(benchmark::kMicrosecond);
    for (Viewpoint const& viewpoint : Viewpoints())
    {
        benchmark::RegisterBenchmark(("frame/" + Name(viewpoint)).c_str(), Frame, window, viewpoint)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime()
            ->UseRealTime();
    }
}

} // namespace

int main(int argc, char** argv)
{
    GameSettings::Initialize();
    benchmark::Initialize(&argc, argv);
    auto const window = BenchWindow::open();
    if (!window)
    {
        return 1;
    }
    benchmark::AddCustomContext("OpenGL", reinterpret_cast<char const*>(glGetString(GL_RENDERER)));
    Game::Init(BenchWindow::kWidth, BenchWindow::kHeight);
    std::unique_ptr<Game> const game(Game::pGame);
    RegisterAll(window.get());
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
