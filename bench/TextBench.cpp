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
