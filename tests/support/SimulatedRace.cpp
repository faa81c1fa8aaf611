// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/SimulatedRace.h"

#include "core/Game.h"
#include "core/GameEvent.h"
#include "core/GameEventNSEvent.h"
#include "platform/base/Random.h"
#include "platform/window/Event.h"
#include "settings/GameSettings.h"
#include "world/Universe.h"

#include <cmath>

namespace
{

// As the game asks for it when it draws a frame.
float TurnRequest(int mouse, int viewSize)
{
    double const sensitivity = GameSettings::GetFloatParam(setting::kMouseSensitivity);
    float const deadCenter = GameSettings::GetFloatParam(setting::kMouseDeadCenterPct);
    auto const turn = static_cast<float>((mouse + viewSize * -0.5) * (sensitivity + sensitivity) / viewSize);
    return std::fabs(turn) > deadCenter ? turn : 0.0F;
}

void PressKey(Game& game, TextSetting const& binding)
{
    platform::Event event;
    event.type = platform::EventType::KeyDown;
    event.charactersIgnoringModifiers = static_cast<char16_t>(GameSettings::GetUniCharParam(binding));
    GameEvent const press(new GameEventNSEvent(event));
    game.HandleEvent(&press);
}

} // namespace

SimulatedRace::SimulatedRace(unsigned seed) : m_game(*Game::pGame)
{
    m_game.SwitchToState(kStateMenu);
    platform::SeedRandom(seed);
    m_game.SwitchToState(kStatePlaying);
    m_universe = m_game.GetUniverse();
    m_pilot = std::make_unique<Pilot>(*m_universe, kViewWidth, kViewHeight);
}

void SimulatedRace::Step()
{
    PilotInput const input = m_pilot->NextInput();
    if (input.throttle != 0)
    {
        PressKey(m_game, input.throttle > 0 ? setting::kKeyThrustUp : setting::kKeyThrustDown);
    }
    m_universe->Tick(1.0 / kStepsPerSecond);
    m_universe->PlayerWantsToTurn(TurnRequest(input.mouseX, kViewWidth),
                                  TurnRequest(input.mouseY, kViewHeight));
}

bool SimulatedRace::IsOver() const
{
    return m_game.GetState() == kStateMenu;
}
