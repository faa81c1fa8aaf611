// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// quarrow_curve_bench: what a frame costs against view distance, detail, density and window size, one changed
// at a time, for the game and for the plainest renderer of the same scene. Prints a line for each value:
// name, value, milliseconds of the game, milliseconds of the reference, separated by tabs. bench/curves draws
// them.
#include "bench/BenchWindow.h"
#include "bench/ReferenceScene.h"
#include "bench/Viewpoint.h"
#include "core/Game.h"
#include "platform/base/Random.h"
#include "settings/GameSettings.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

namespace
{

constexpr unsigned kSeed = 2026;
constexpr int kRounds = 5;
constexpr float kPlaces[] = {0.0F, 24.0F, 64.0F}; // outside, on the way and deep; both directions each

struct Size
{
    int width;
    int height;
};
constexpr Size kFull{BenchWindow::kWidth, BenchWindow::kHeight};

double Median(std::vector<double>& values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

// Processor time of all threads: what else the machine does hardly changes it.
double ProcessorMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

double Milliseconds(BenchWindow const& window, std::function<void()> const& draw)
{
    double const begin = ProcessorMilliseconds();
    draw();
    window.show();
    return ProcessorMilliseconds() - begin;
}

struct Costs
{
    double game = 0.0; // milliseconds
    double reference = 0.0;
};

Costs CostsFrom(BenchWindow const& window, Viewpoint const& viewpoint, Size const& size)
{
    platform::SeedRandom(kSeed);
    Game::pGame->SwitchToState(kStateMenu);
    Game::pGame->SwitchToState(kStatePlaying);
    Universe& world = *Game::pGame->GetUniverse();
    LookFrom(viewpoint, *world.GetCamera());
    ReferenceScene const reference(world);
    std::vector<double> game;
    std::vector<double> plain;
    for (int round = 0; round < kRounds; ++round)
    {
        game.push_back(Milliseconds(window, [&] { world.Render(size.width, size.height); }));
        plain.push_back(Milliseconds(window, [&] { reference.Render(size.width, size.height); }));
    }
    return {Median(game), Median(plain)};
}

// The geometric mean of the viewpoints.
void PrintPoint(BenchWindow const& window, char const* name, double value, Size const& size = kFull)
{
    Costs logarithms;
    int count = 0;
    for (Viewpoint const& viewpoint : Viewpoints())
    {
        if (std::find(std::begin(kPlaces), std::end(kPlaces), viewpoint.place) != std::end(kPlaces))
        {
            Costs const costs = CostsFrom(window, viewpoint, size);
            logarithms.game += std::log(costs.game);
            logarithms.reference += std::log(costs.reference);
            ++count;
        }
    }
    std::printf("%s\t%g\t%.2f\t%.2f\n", name, value, std::exp(logarithms.game / count),
                std::exp(logarithms.reference / count));
    std::fflush(stdout);
}

void PrintFloatCurve(BenchWindow const& window, char const* name, FloatSetting const& setting,
                     std::vector<float> const& values)
{
    float const before = GameSettings::GetFloatParam(setting);
    for (float const value : values)
    {
        GameSettings::SetFloatParam(setting, value);
        PrintPoint(window, name, static_cast<double>(value));
    }
    GameSettings::SetFloatParam(setting, before);
}

void PrintDetailCurve(BenchWindow const& window)
{
    int const before = GameSettings::GetIntParam(setting::kAsteroidsSmoothness);
    for (int const slices : {5, 7, 9})
    {
        GameSettings::SetIntParam(setting::kAsteroidsSmoothness, slices);
        PrintPoint(window, "detail (slices of a sphere)", slices);
    }
    GameSettings::SetIntParam(setting::kAsteroidsSmoothness, before);
}

void PrintCurves(BenchWindow const& window)
{
    PrintFloatCurve(window, "view distance (units, outside the field)", setting::kFogEndHigh,
                    {40.0F, 50.0F, 65.0F});
    PrintDetailCurve(window);
    PrintFloatCurve(window, "density (share of filled cells at the deepest)",
                    setting::kAsteroidsDensityCenter, {0.125F, 0.25F, 0.375F, 0.5F});
    for (Size const& size : {Size{320, 180}, Size{640, 360}, Size{960, 540}, kFull})
    {
        PrintPoint(window, "window (pixels across)", size.width, size);
    }
}

} // namespace

int main()
{
    GameSettings::Initialize();
    auto const window = BenchWindow::open();
    if (!window)
    {
        return 1;
    }
    Game::Init(BenchWindow::kWidth, BenchWindow::kHeight);
    std::unique_ptr<Game> const game(Game::pGame);
    PrintCurves(*window);
    return 0;
}
