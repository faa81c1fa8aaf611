// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/flight/SimulatedRace.h"

#include "core/Game.h"
#include "platform/base/Random.h"
#include "support/window/EventFactory.h"
#include "world/Universe.h"

#include <cmath>

namespace
{

// What the game asks the ship for when it draws a frame, with the default sensitivity and dead centre.
float TurnRequest(int mouse, int viewSize)
{
    float const turn = 2.0F * static_cast<float>(mouse) / static_cast<float>(viewSize) - 1.0F;
    return std::fabs(turn) > 0.05F ? turn : 0.0F;
}

Game& GameInARace(unsigned seed)
{
    Game::pGame->SwitchToState(kStateMenu);
    platform::SeedRandom(seed);
    Game::pGame->SwitchToState(kStatePlaying);
    return *Game::pGame;
}

} // namespace

SimulatedRace::SimulatedRace(unsigned seed) : SimulatedRace(GameInARace(seed))
{
}

SimulatedRace::SimulatedRace() : SimulatedRace(*Game::pGame)
{
}

SimulatedRace::SimulatedRace(Game& game)
    : m_game(game),
      m_universe(game.GetUniverse()),
      m_pilot(std::make_unique<Pilot>(*m_universe, kViewWidth, kViewHeight))
{
}

void SimulatedRace::Step()
{
    PilotInput const input = m_pilot->NextInput();
    if (input.throttle != 0)
    {
        GameEvent const press = events::Wrapped(events::KeyDown(input.throttle > 0 ? u"w" : u"s"));
        m_game.HandleEvent(&press);
    }
    m_universe->Tick(1.0 / kStepsPerSecond);
    m_universe->PlayerWantsToTurn(TurnRequest(input.mouseX, kViewWidth),
                                  TurnRequest(input.mouseY, kViewHeight));
}

bool SimulatedRace::IsOver() const
{
    return m_game.GetState() == kStateMenu;
}
