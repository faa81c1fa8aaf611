// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The one object that ties everything together: the race world, the sounds of the game as a whole, and the
// state. It is made on the first frame; Tick and Render are called once a frame, HandleEvent for every event.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace platform
{
enum class Control;
}

class GameEvent;
class GameSound;
class Universe;

enum GameState : std::int32_t
{
    kStatePlaying = 0,  // a race runs; no menu is current
    kStatePaused = 1,   // the race is frozen under the pause menu
    kStateMenu = 2,     // a menu over the world, the cockpit hidden
    kStateRaceOver = 3, // a request only: the race has just finished; the state becomes kStateMenu
};

class Game
{
public:
    // Makes the game for a view of that size in pixels. It lives until the process ends.
    static void Init(int width, int height);

    // Null until Init().
    static Game* pGame;

    Game(int width, int height);
    ~Game();
    Game(Game const&) = delete;
    Game& operator=(Game const&) = delete;

    // All changes of state go through here.
    void SwitchToState(GameState newState);

    // As by the pause key; outside a race that runs it does nothing.
    void PauseRace();

    void Tick();
    void Render(int width, int height); // pixels
    void HandleEvent(GameEvent const* event);

    // Whether the key has a use here and now that goes before what it does in every window.
    bool WantsKey(GameEvent const& event) const;

    // The character of the key that does this here and now; empty where none does.
    std::u16string KeyFor(platform::Control control) const;

    // From the last frame's duration; infinite before the first.
    float GetFPS() const { return static_cast<float>(1.0 / m_elapsed); }

    GameState GetState() const { return m_state; }
    Universe* GetUniverse() const { return m_universe.get(); }
    bool WasDebugKeySeen() const { return m_debugKeySeen; }

private:
    void ReplaceUniverse();
    void ReadControlSettings();
    void StartOrResumeRace();
    void StartRace();
    void SaveBeforeRace();
    void EndRace();
    void HandlePlayingEvent(GameEvent const& event);
    void HandlePausedEvent(GameEvent const& event);
    float ThrottleStep(GameEvent const& event) const;
    void NoteDebugKey(GameEvent const& event);
    void ChangeThrottle(float step);
    void RequestTurn(int width, int height);

    GameState m_state = kStateMenu;
    std::unique_ptr<Universe> m_universe;
    std::uint64_t m_lastTime = 0;
    double m_elapsed = 0.0; // seconds, the last frame's
    std::unique_ptr<GameSound> m_soundFanfare;
    std::unique_ptr<GameSound> m_soundStarter; // never played
    std::unique_ptr<GameSound> m_soundHiScore; // never played
    std::unique_ptr<GameSound> m_soundControls;
    unsigned short m_keyThrustUp = 0;
    unsigned short m_keyThrustDown = 0;
    unsigned short m_keyPause = 0;
    double m_mouseSensitivity = 0.0;
    float m_mouseDeadCenter = 0.0F;
    int m_mouseX = 0; // the pointer, from the view's bottom left
    int m_mouseY = 0;
    int m_viewWidth = 0;
    int m_viewHeight = 0;
    bool m_debugKeySeen = false; // the letter d was typed; nothing in the game reads it
};
