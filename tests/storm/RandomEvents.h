// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An endless sequence of input that no player would give: keys, moves, clicks, wheels, windows that change,
// and kinds of events that the game has no use for. The same seed gives the same sequence. The event storm is
// the caller.
#pragma once

#include <SDL.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>

enum class EventKind : std::size_t
{
    Key,
    KeyLetGo,
    Move,
    Release,
    Wheel,
    Resize,
    Focus,
    FullScreen,
    Foreign, // of no use to the game
    End,     // the close button, Ctrl+Q or the desktop's wish to quit
    Count,
};

constexpr std::size_t kEventKinds = static_cast<std::size_t>(EventKind::Count);
constexpr std::array<char const*, kEventKinds> kEventKindNames = {
    "keys",          "keys let go",          "moves",   "releases", "wheels", "resizes",
    "focus changes", "full-screen switches", "foreign", "ends"};

class RandomEvents
{
public:
    explicit RandomEvents(unsigned seed) : m_random(seed) {}

    // Puts the next one into SDL's queue; some have a second event in their train. The window is the one that
    // has the keyboard, of that size.
    EventKind PushNext(SDL_Window* window);

    bool OneIn(int count) { return Below(count) == 0; }

private:
    int Below(int count);
    int Between(int least, int most);
    EventKind NextKind();
    SDL_Event Blank(unsigned type);
    void PushKey(bool isDown);
    void PushText();
    void PushCommand(SDL_Keycode key, int modifiers);
    void PushMove();
    void PushRelease();
    void PushWheel();
    void PushFocusChange();
    void PushForeign();
    void PushEnd();
    void ResizeWindow();
    SDL_Point Place();

    std::mt19937 m_random;
    SDL_Window* m_window = nullptr;
    SDL_Point m_pointer{};
};
