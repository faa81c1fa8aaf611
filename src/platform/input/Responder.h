// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What takes the player's input, and answers what a device without keys and pointer has to know.
#pragma once

#include "platform/base/Geometry.h"
#include "platform/input/Event.h"

#include <optional>
#include <string>

namespace platform
{

// What a key can be bound to.
enum class Control
{
    ThrottleUp,
    ThrottleDown,
    Pause,
};

class Responder
{
public:
    virtual ~Responder() = default;
    Responder(Responder const&) = delete;
    Responder& operator=(Responder const&) = delete;

    virtual void keyDown(Event const& event) = 0;
    virtual void mouseMoved(Event const& event) = 0;
    virtual void mouseUp(Event const& event) = 0; // left button
    virtual void scrollWheel(Event const& event) = 0;

    // The window was minimised, another program has the keyboard now, or a gamepad was unplugged.
    virtual void playerDidLeave() = 0;

    // The characters of the key that does this here and now; empty where none does.
    virtual std::u16string keyFor(Control control) = 0;

    // The middle of what is highlighted (step 0), or of what a click has an effect on next below it (1) or
    // above it (-1), in pixels from the bottom left; nothing where there is none.
    virtual std::optional<Point> clickPlace(int step) = 0;

    // Size in the game's pixels of the window that shows it; origin always (0, 0).
    Rect frame() const { return m_frame; }

protected:
    Responder() = default;

    Rect m_frame;
};

} // namespace platform
