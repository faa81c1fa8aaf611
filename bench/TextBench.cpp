// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A read-out whose text changes: laid out, drawn into a bitmap and loaded as a texture anew.
#include "ui/Overlay.h"

#include <benchmark/benchmark.h>

namespace
{

void ChangedLine(benchmark::State& state)
{
    Overlay overlay(10, 10, 20, "Courier");
    int seconds = 0;
    for ([[maybe_unused]] auto const _ : state)
    {
        overlay.SetStringTimer(seconds++ % 3600);
        overlay.Render(1280, 720);
    }
}
BENCHMARK(ChangedLine)->Name("text/changed line")->Unit(benchmark::kMicrosecond);

// The cockpit's worst frame: clock, counter and distance change together, in two sizes. The time is for all
// three.
void ChangedReadOuts(benchmark::State& state)
{
    Overlay clock(10, 10, 20, "Courier");
    Overlay counter(10, 40, 12, "Courier");
    Overlay distance(10, 70, 12, "Courier");
    int frame = 0;
    for ([[maybe_unused]] auto const _ : state)
    {
        ++frame;
        clock.SetStringTimer(frame % 3600);
        counter.SetString(frame % 8);
        distance.SetString(frame % 200);
        clock.Render(1280, 720);
        counter.Render(1280, 720);
        distance.Render(1280, 720);
    }
}
BENCHMARK(ChangedReadOuts)->Name("text/three changed read-outs")->Unit(benchmark::kMicrosecond);

void UnchangedLine(benchmark::State& state)
{
    Overlay overlay(10, 10, 20, "Courier");
    overlay.SetStringTimer(83);
    for ([[maybe_unused]] auto const _ : state)
    {
        overlay.Render(1280, 720);
    }
}
BENCHMARK(UnchangedLine)->Name("text/unchanged line")->Unit(benchmark::kMicrosecond);

} // namespace
