// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The whole game with a pilot for whom time passes quickly: while a race runs, he flies most of a second
// between two frames. Each finish is told on the standard output.
#include "core/Game.h"
#include "core/kGLView.h"
#include "platform/base/RunLoop.h"
#include "platform/window/Application.h"
#include "support/flight/SimulatedRace.h"

#include <cstdio>
#include <memory>
#include <optional>

namespace
{

constexpr double kInterval = 0.005; // seconds between two flights
constexpr int kSteps = 50;          // of a flight

void FlyOn(std::optional<SimulatedRace>& race)
{
    if (Game::pGame != nullptr && Game::pGame->GetState() == kStatePlaying)
    {
        if (!race)
        {
            race.emplace();
        }
        for (int step = 0; step < kSteps && !race->IsOver(); ++step)
        {
            race->Step();
        }
    }
    else if (race)
    {
        race.reset();
        std::puts("finished");
        std::fflush(stdout);
    }
}

} // namespace

int main()
{
    std::optional<SimulatedRace> race;
    auto const timer = platform::Timer::scheduledTimer(kInterval, [&race] { FlyOn(race); });
    return platform::ApplicationMain(std::make_unique<kGLView>());
}
