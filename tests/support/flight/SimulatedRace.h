// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A race flown by the pilot, 60 steps to a simulated second, which need no pictures between them.
#pragma once

#include "support/flight/Pilot.h"

#include <memory>

class Game;

class SimulatedRace
{
public:
    static constexpr int kViewWidth = 1280;
    static constexpr int kViewHeight = 720;
    static constexpr int kStepsPerSecond = 60;

    // Starts a race from the menu of Game::pGame, in the world that the seed gives.
    explicit SimulatedRace(unsigned seed);

    // Takes over the race that has just begun there.
    SimulatedRace();

    // One step: the pilot's input as events, the world's tick, and the turn request of the frame that would
    // be drawn.
    void Step();

    bool IsOver() const; // the game is back in a menu
    Universe const& GetUniverse() const { return *m_universe; }

private:
    explicit SimulatedRace(Game& game);

    Game& m_game;
    Universe* m_universe;
    std::unique_ptr<Pilot> m_pilot;
};
