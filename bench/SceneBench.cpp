// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// quarrow_scene_bench [SEED...]: the game's scene side by side with the plainest renderer of it and with the
// least that could be drawn. The three take turns, frame by frame, so that whatever else the machine does
// falls on all of them. Prints a table in Markdown; ratios are of medians.
#include "bench/BenchWindow.h"
#include "bench/ReferenceScene.h"
#include "bench/Viewpoint.h"
#include "core/Game.h"
#include "platform/base/OpenGL.h"
#include "platform/base/Random.h"
#include "settings/GameSettings.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iterator>
#include <memory>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 21;
constexpr float kDeep = 64.0F; // from here on the field is at its densest, or nearly so
constexpr int kWidth = BenchWindow::kWidth;
constexpr int kHeight = BenchWindow::kHeight;

// Milliseconds of a frame.
struct Duration
{
    double elapsed = 0.0;
    double processor = 0.0; // of all threads: what else the machine does hardly changes it
};

struct Times
{
    Duration reference;
    Duration game;
    Duration limit;
    std::size_t inView = 0; // asteroids that the reference draws
    std::size_t shown = 0;  // and those that own a pixel
};

double Median(std::vector<Duration> const& durations, double Duration::*part)
{
    std::vector<double> values;
    std::transform(durations.begin(), durations.end(), std::back_inserter(values),
                   [part](Duration const& duration) { return duration.*part; });
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

Duration Median(std::vector<Duration> const& durations)
{
    return {Median(durations, &Duration::elapsed), Median(durations, &Duration::processor)};
}

double ProcessorMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

Duration Frame(BenchWindow const& window, std::function<void()> const& draw)
{
    auto const begin = Clock::now();
    double const processorBegin = ProcessorMilliseconds();
    draw();
    window.show();
    return {std::chrono::duration<double, std::milli>(Clock::now() - begin).count(),
            ProcessorMilliseconds() - processorBegin};
}

Times Measure(BenchWindow const& window, Universe& world)
{
    ReferenceScene const scene(world);
    auto const shown = scene.RocksThatShow(kWidth, kHeight);
    std::vector<Duration> times[3];
    for (int round = 0; round <= kRounds; ++round)
    {
        Duration const now[3] = {
            Frame(window, [&] { scene.Render(kWidth, kHeight); }),
            Frame(window, [&] { world.Render(kWidth, kHeight); }),
            Frame(window, [&] { scene.RenderOnly(shown, kWidth, kHeight); }),
        };
        for (int i = 0; i < 3 && round > 0; ++i) // the first round warms up
        {
            times[i].push_back(now[i]);
        }
    }
    return {Median(times[0]), Median(times[1]), Median(times[2]), scene.RocksInView(kWidth, kHeight).size(),
            shown.size()};
}

// Uses the game's one world: a second one would replace the display lists that asteroids share.
Times MeasureFrom(BenchWindow const& window, Viewpoint const& viewpoint, unsigned seed)
{
    platform::SeedRandom(seed);
    Game::pGame->SwitchToState(kStateMenu);
    Game::pGame->SwitchToState(kStatePlaying);
    Universe& world = *Game::pGame->GetUniverse();
    LookFrom(viewpoint, *world.GetCamera());
    return Measure(window, world);
}

// Geometric means of ratios, and the worst.
class Summary
{
public:
    void Add(double ratio)
    {
        m_sumOfLogarithms += std::log(ratio);
        m_worst = std::max(m_worst, ratio);
        ++m_count;
    }

    double Mean() const { return std::exp(m_sumOfLogarithms / m_count); }
    double Worst() const { return m_worst; }

private:
    double m_sumOfLogarithms = 0.0;
    double m_worst = 0.0;
    int m_count = 0;
};

// Summaries of the whole table by one of the two clocks.
struct Totals
{
    explicit Totals(double Duration::*clock) : part(clock) {}

    void Add(Times const& t, bool isDeep)
    {
        toReference.Add(t.game.*part / t.reference.*part);
        toLimit.Add(t.game.*part / t.limit.*part);
        if (isDeep)
        {
            deepest.Add(t.game.*part / t.reference.*part);
        }
    }

    void Print(char const* name) const
    {
        std::printf("| %s | %.2f | %.2f | %.2f | %.2f | %.2f |\n", name, toReference.Mean(), deepest.Mean(),
                    deepest.Worst(), toReference.Worst(), toLimit.Mean());
    }

    double Duration::*part;
    Summary toReference;
    Summary deepest;
    Summary toLimit;
};

void PrintRow(Viewpoint const& viewpoint, unsigned seed, Times const& t)
{
    std::printf("| %.0f | %s | %u | %zu | %zu | %.1f ms | %.1f ms | %.1f ms | %.2f | %.2f | %.2f | %.2f |\n",
                static_cast<double>(viewpoint.place), viewpoint.directionName, seed, t.inView, t.shown,
                t.reference.elapsed, t.game.elapsed, t.limit.elapsed, t.game.elapsed / t.reference.elapsed,
                t.game.elapsed / t.limit.elapsed, t.game.processor / t.reference.processor,
                t.game.processor / t.limit.processor);
    std::fflush(stdout);
}

void PrintTable(BenchWindow const& window, std::vector<unsigned> const& seeds)
{
    Totals elapsed(&Duration::elapsed);
    Totals processor(&Duration::processor);
    std::printf(
        "| p | looking | seed | in view | show | reference | game | limit | game / reference | "
        "game / limit | the same of processor time | |\n|---|---|---|---|---|---|---|---|---|---|---|---|\n");
    for (Viewpoint const& viewpoint : Viewpoints())
    {
        for (unsigned const seed : seeds)
        {
            Times const times = MeasureFrom(window, viewpoint, seed);
            PrintRow(viewpoint, seed, times);
            elapsed.Add(times, viewpoint.place >= kDeep);
            processor.Add(times, viewpoint.place >= kDeep);
        }
    }
    std::printf(
        "\n| game against | reference, geometric mean | its four deepest viewpoints, geometric mean | the "
        "worst of the four | the worst of all | limit, geometric mean |\n|---|---|---|---|---|---|\n"
        "| to be reached | 0.75 | 0.60 | | 1.03 | 1.25 |\n");
    elapsed.Print("time elapsed");
    processor.Print("processor time");
}

} // namespace

int main(int argc, char** argv)
{
    GameSettings::Initialize();
    auto const window = BenchWindow::open();
    if (!window)
    {
        return 1;
    }
    std::vector<unsigned> seeds;
    for (int i = 1; i < argc; ++i)
    {
        seeds.push_back(static_cast<unsigned>(std::strtoul(argv[i], nullptr, 10)));
    }
    if (seeds.empty())
    {
        seeds = {2026};
    }
    Game::Init(kWidth, kHeight);
    std::unique_ptr<Game> const game(Game::pGame);
    PrintTable(*window, seeds);
    return 0;
}
