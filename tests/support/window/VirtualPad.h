// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A gamepad that SDL makes up, plugged in while the object lives. What it does is seen at the next look at
// the pads: a button has to be held over one of them.
#pragma once

#include <SDL.h>

#include <memory>

class VirtualPad
{
public:
    VirtualPad();
    ~VirtualPad();
    VirtualPad(VirtualPad const&) = delete;
    VirtualPad& operator=(VirtualPad const&) = delete;

    void hold(SDL_GameControllerButton button);
    void letGo(SDL_GameControllerButton button);

    // The left stick, by shares of its full deflection: x to the right, y upwards.
    void moveStick(float x, float y);

    bool isOpen() const; // as a gamepad

private:
    std::unique_ptr<SDL_Joystick, void (*)(SDL_Joystick*)> m_joystick;
};
