// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/Game.h"

#include "audio/GameMusic.h"
#include "audio/GameSound.h"
#include "core/FixedState.h"
#include "core/GameEvent.h"
#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/input/Responder.h"
#include "platform/settings/Preferences.h"
#include "settings/GameSettings.h"
#include "ui/Menu.h"
#include "ui/MenuGame.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace
{

constexpr float kThrottleStep = 0.2F; // of full speed

// A turn request along one axis: 0 with the pointer at the view's centre, the sensitivity at its edge; 0 also
// in the dead zone, which is a range of the request.
float TurnRequest(int mouse, int viewSize, double sensitivity, float deadCenter)
{
    auto const turn = static_cast<float>((mouse + viewSize * -0.5) * (sensitivity + sensitivity) /
                                         static_cast<double>(viewSize));
    return std::fabs(turn) > deadCenter ? turn : 0.0F;
}

} // namespace

Game* Game::pGame = nullptr;

void Game::Init(int width, int height)
{
    pGame = new Game(width, height);
}

Game::Game(int width, int height)
{
    Menu::SetCurrent(new MenuMain);
    platform::SeedRandom(static_cast<unsigned>(std::time(nullptr)));
    SetFixedState();
    LogBitDepths();
    m_lastTime = platform::UpTime();
    m_mouseX = width / 2;
    m_mouseY = height / 2;
    m_soundFanfare = std::make_unique<GameSound>("Fanfare.AIFF");
    m_soundControls = std::make_unique<GameSound>("Controls.AIFF");
    m_soundStarter = std::make_unique<GameSound>("Starter.AIFF");
    m_soundHiScore = std::make_unique<GameSound>("HiScore.AIFF");
    m_universe = std::make_unique<Universe>();
    SwitchToState(kStateMenu);
    m_soundFanfare->Play();
}

Game::~Game()
{
    m_universe.reset();
    Menu::ClearCurrent();
}

void Game::SwitchToState(GameState newState)
{
    switch (newState)
    {
    case kStatePlaying:
        StartOrResumeRace();
        break;
    case kStatePaused:
        Menu::SetCurrent(new MenuPaused);
        break;
    case kStateMenu:
        m_universe->PlayerWantsToGo(0.0F);
        m_universe->SetCockpitVisible(false);
        break;
    case kStateRaceOver:
        EndRace();
        break;
    }
    m_state = newState == kStateRaceOver ? kStateMenu : newState;
}

void Game::StartOrResumeRace()
{
    if (m_state == kStateMenu)
    {
        StartRace();
    }
    else if (m_state == kStatePaused)
    {
        m_universe->Unpause();
    }
}

void Game::StartRace()
{
    SaveBeforeRace();
    ReplaceUniverse();
    ReadControlSettings();
    GameMusic::SetTrackVolume(GameSettings::GetFloatParam(setting::kMusicVolume));
    GameMusic::StartTrack();
}

// What the menus changed is on the disk before the race, during which nothing is saved. The race's clock does
// not count the time that the disk takes.
void Game::SaveBeforeRace()
{
    std::uint64_t const start = platform::UpTime();
    platform::Preferences::standard().synchronize();
    m_lastTime += platform::UpTime() - start;
}

// The old world is deleted before the new one is made: the display lists that all asteroids share exist once.
void Game::ReplaceUniverse()
{
    unsigned long const sky = m_universe->GetSkyTexture();
    m_universe.reset();
    m_universe = std::make_unique<Universe>(sky);
}

void Game::ReadControlSettings()
{
    m_mouseSensitivity = GameSettings::GetFloatParam(setting::kMouseSensitivity);
    m_mouseDeadCenter = GameSettings::GetFloatParam(setting::kMouseDeadCenterPct);
    m_keyThrustUp = GameSettings::GetUniCharParam(setting::kKeyThrustUp);
    m_keyThrustDown = GameSettings::GetUniCharParam(setting::kKeyThrustDown);
    m_keyPause = GameSettings::GetUniCharParam(setting::kKeyPause);
}

void Game::EndRace()
{
    GameMusic::StopTrack();
    m_soundFanfare->Play();
    Menu::SetCurrent(new MenuEndGame(static_cast<int>(m_universe->GetTimeElapsed())));
    m_universe->Pause();
    m_universe->SetCockpitVisible(false);
}

void Game::PauseRace()
{
    if (m_state == kStatePlaying)
    {
        SwitchToState(kStatePaused);
        m_universe->Pause();
    }
}

void Game::Tick()
{
    std::uint64_t const now = platform::UpTime();
    m_elapsed = platform::SecondsBetween(m_lastTime, now);
    m_lastTime = now;
    m_universe->Tick(m_elapsed);
}

void Game::Render(int width, int height)
{
    m_viewWidth = width;
    m_viewHeight = height;
    if (width < 1 || height < 1)
    {
        return; // nothing to draw into, nor to steer by
    }
    RequestTurn(width, height);
    m_universe->Render(width, height);
    if (m_state == kStatePaused || m_state == kStateMenu)
    {
        Menu::RenderCurrent(width, height);
    }
}

// Called in every frame: outside a race the request is 0, so that the ship stops turning.
void Game::RequestTurn(int width, int height)
{
    float turnX = 0.0F;
    float turnY = 0.0F;
    if (m_state == kStatePlaying)
    {
        turnX = TurnRequest(m_mouseX, width, m_mouseSensitivity, m_mouseDeadCenter);
        turnY = TurnRequest(m_mouseY, height, m_mouseSensitivity, m_mouseDeadCenter);
    }
    m_universe->PlayerWantsToTurn(turnX, turnY);
}

void Game::HandleEvent(GameEvent const* event)
{
    GameState const state = m_state; // a menu may change it
    if (state == kStatePaused || state == kStateMenu)
    {
        Menu::HandleEventCurrent(event);
    }
    if (state == kStatePlaying)
    {
        HandlePlayingEvent(*event);
    }
    else if (state == kStatePaused)
    {
        HandlePausedEvent(*event);
    }
}

void Game::HandlePlayingEvent(GameEvent const& event)
{
    int dx = 0;
    int dy = 0;
    if (event.IsMouseMove(dx, dy, m_mouseX, m_mouseY))
    {
        return; // the turn follows with the next frame
    }
    if (event.IsKey(m_keyPause))
    {
        PauseRace();
    }
    else if (float const step = ThrottleStep(event); step != 0.0F)
    {
        ChangeThrottle(step);
    }
    else
    {
        NoteDebugKey(event);
    }
}

void Game::HandlePausedEvent(GameEvent const& event)
{
    if (event.IsKey(m_keyPause))
    {
        SwitchToState(kStatePlaying);
        m_universe->Unpause();
    }
    else
    {
        NoteDebugKey(event);
    }
}

// A key of the player's is his in a race, paused or not; in the menus only one that waits for a key wants it.
bool Game::WantsKey(GameEvent const& event) const
{
    if (m_state == kStateMenu)
    {
        Menu const* const menu = Menu::GetCurrent();
        return menu != nullptr && menu->WaitsForKey();
    }
    return event.IsKey(m_keyThrustUp) || event.IsKey(m_keyThrustDown) || event.IsKey(m_keyPause);
}

std::u16string Game::KeyFor(platform::Control control) const
{
    bool const isPause = control == platform::Control::Pause;
    if (m_state == kStateMenu || (m_state == kStatePaused && !isPause))
    {
        return {};
    }
    unsigned short const throttle =
        control == platform::Control::ThrottleUp ? m_keyThrustUp : m_keyThrustDown;
    return {static_cast<char16_t>(isPause ? m_keyPause : throttle)};
}

// What the event asks for; 0 when it is about something else.
float Game::ThrottleStep(GameEvent const& event) const
{
    bool up = event.IsKey(m_keyThrustUp);
    if (up || event.IsKey(m_keyThrustDown) || event.IsScrollWheel(up))
    {
        return up ? kThrottleStep : -kThrottleStep;
    }
    return 0.0F;
}

void Game::NoteDebugKey(GameEvent const& event)
{
    m_debugKeySeen = m_debugKeySeen || event.IsKey('d');
}

// The click sounds also where the throttle is at its end already.
void Game::ChangeThrottle(float step)
{
    m_soundControls->Play();
    float const throttle = m_universe->GetCamera()->GetTargetVPct() + step;
    m_universe->PlayerWantsToGo(step > 0.0F ? std::min(1.0F, throttle) : std::max(0.0F, throttle));
}
