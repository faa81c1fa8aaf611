// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One input event as the window hands it to its view.
#pragma once

#include "platform/base/Geometry.h"

#include <string>

namespace platform
{

enum class EventType
{
    LeftMouseUp = 2,
    RightMouseUp = 4,
    MouseMoved = 5, // no button is down
    LeftMouseDragged = 6,
    RightMouseDragged = 7,
    KeyDown = 10, // repeats too
    KeyUp = 11,
    ScrollWheel = 22,
    OtherMouseDragged = 27,
};

struct Event
{
    EventType type = EventType::KeyDown;

    // What the key produces in the user's layout, ignoring Control, Alt and Command but not Shift; empty for
    // other events. Keys without a character have the codes of KeyCodes.h.
    std::u16string charactersIgnoringModifiers;

    // The game's pixels, origin at the bottom left, y upwards.
    Point locationInWindow;

    // The pointer's last movement in the game's pixels, y downwards.
    int mouseDeltaX = 0;
    int mouseDeltaY = 0;

    // Wheel notches: x to the right, y away from the user, z about a third axis where there is one.
    float deltaX = 0.0F;
    float deltaY = 0.0F;
    float deltaZ = 0.0F;
};

} // namespace platform
