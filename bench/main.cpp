// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// quarrow_bench: runs under tests/support/with-display, which gives it a home without settings.
#include "settings/GameSettings.h"

#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    GameSettings::Initialize();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
