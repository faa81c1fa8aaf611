// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// From SDL's mouse events to the game's.
#pragma once

#include "platform/window/Event.h"

#include <SDL.h>

#include <optional>

namespace platform
{

class Window;

// A plain move, a release of the left button, or at least a notch of a wheel, in the window where it
// happened; nothing for any other event.
std::optional<Event> TranslateMouse(SDL_Event const& event, Window const& window);

} // namespace platform
