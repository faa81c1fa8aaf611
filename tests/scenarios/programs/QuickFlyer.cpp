// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The whole game with a pilot for whom time passes quickly: while a race runs, he flies most of a second
// between two frames. In the frames themselves the ship rests, so that it stays on its course however long
// they take. Few of his races have a collision: its sound is played at each start, so that it is in memory
// from the first race on. Each finish is told on the standard output.
#include "core/Game.h"
#include "core/kGLView.h"
#include "platform/base/RunLoop.h"
#include "platform/window/Application.h"
#include "support/flight/SimulatedRace.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <cstdio>
#include <memory>
#include <optional>

namespace
{

constexpr double kInterval = 0.005; // seconds between two flights
constexpr int kSteps = 50;          // of a flight

struct Flight
{
    SimulatedRace race;
    float speed = 0.0F;    // of the ship when it goes on
    float throttle = 0.0F; // its target then, as a share of the greatest speed

    void GoOn()
    {
        Universe& universe = *Game::pGame->GetUniverse();
        Camera& ship = *universe.GetCamera();
        ship.SetVelocity(speed);
        ship.SetTargetVPct(throttle);
        for (int step = 0; step < kSteps && !race.IsOver(); ++step)
        {
            race.Step();
        }
        speed = ship.GetSpeed();
        throttle = ship.GetTargetVPct();
        ship.SetVelocity(0.0F);
        ship.SetTargetVPct(0.0F);
        universe.PlayerWantsToTurn(0.0F, 0.0F);
    }
};

void FlyOn(std::optional<Flight>& flight)
{
    if (Game::pGame != nullptr && Game::pGame->GetState() == kStatePlaying)
    {
        if (!flight)
        {
            flight.emplace();
            Game::pGame->GetUniverse()->GetWhamSound().Play();
        }
        flight->GoOn();
    }
    else if (flight)
    {
        flight.reset();
        std::puts("finished");
        std::fflush(stdout);
    }
}

} // namespace

int main()
{
    std::optional<Flight> flight;
    auto const timer = platform::Timer::scheduledTimer(kInterval, [&flight] { FlyOn(flight); });
    return platform::ApplicationMain(std::make_unique<kGLView>());
}
