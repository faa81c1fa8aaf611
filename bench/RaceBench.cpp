// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// From the click on "Start Race" to the new race's first frame.
#include "core/Game.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

void NewRace(benchmark::State& state)
{
    Game::Init(1280, 720);
    std::unique_ptr<Game> const game(Game::pGame);
    for ([[maybe_unused]] auto const _ : state)
    {
        game->SwitchToState(kStateMenu);
        game->SwitchToState(kStatePlaying);
        game->Tick();
        game->Render(1280, 720);
    }
    Game::pGame = nullptr;
}
BENCHMARK(NewRace)->Name("race/new")->Unit(benchmark::kMillisecond);

} // namespace
