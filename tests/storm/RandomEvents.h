// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An endless sequence of input that no player would give: keys, moves, clicks, wheels, windows that change,
// and kinds of events that the game has no use for. The same seed gives the same sequence.
#pragma once

#include <SDL.h>

#include <cstddef>
#include <iterator>
#include <random>

class RandomEvents
{
public:
    explicit RandomEvents(unsigned seed) : m_random(seed) {}

    // Puts the next one into SDL's queue, now and then two. The window is the one that has the keyboard.
    void PushNext(SDL_Window* window);

    bool OneIn(int count) { return Below(count) == 0; }

private:
    int Below(int count);
    int Between(int least, int most);
    template <typename Elements>
    auto OneOf(Elements const& elements)
    {
        return elements[static_cast<std::size_t>(Below(static_cast<int>(std::size(elements))))];
    }
    SDL_Event Blank(unsigned type);
    void PushKeyDown() { PushKey(true); }
    void PushKeyUp() { PushKey(false); }
    void PushKey(bool isDown);
    void PushText();
    void PushCommand(SDL_Keycode key, int modifiers);
    void PushMove();
    void PushRelease();
    void PushWheel();
    void PushFocusChange();
    void PushForeign();
    void PushFullScreenKey();
    void PushEnd();
    void ResizeWindow();
    SDL_Point Place();

    std::mt19937 m_random;
    SDL_Window* m_window = nullptr;
    SDL_Point m_pointer{};
};
