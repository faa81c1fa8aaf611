// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The gamepads, played as mouse and keyboard are: the left stick's deflection is the pointer's place in the
// view, and buttons press keys or click. Pads may come and go at any time; all that are there play.
#pragma once

#include "platform/input/Responder.h"

#include <SDL.h>

#include <map>
#include <memory>

namespace platform
{

class Gamepads
{
public:
    // Looks for pads, which takes some milliseconds. Where the system refuses: one log line, and there are
    // none. view: gets the events, and outlives this.
    explicit Gamepads(Responder& view);
    ~Gamepads();
    Gamepads(Gamepads const&) = delete;
    Gamepads& operator=(Gamepads const&) = delete;

    // Puts what the pads did since the last call into SDL's queue.
    static void poll();

    // Any event from SDL's queue. Those of pads go to the view as keys, moves and clicks.
    void dispatch(SDL_Event const& event);

private:
    struct Close
    {
        void operator()(SDL_GameController* pad) const { SDL_GameControllerClose(pad); }
    };
    using Pad = std::unique_ptr<SDL_GameController, Close>;

    void open(int device);
    void close(SDL_JoystickID pad);
    void moveStick(SDL_JoystickID pad);
    void press(Uint8 button);
    void pressKey(Control control);
    void step(int items, Control inRace);
    void click();
    void steer();
    void steerRace();

    Responder& m_view;
    std::map<SDL_JoystickID, Pad> m_pads;
    Point m_stick; // the deflection, -1..1, y upwards
};

} // namespace platform
