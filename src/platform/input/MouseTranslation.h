// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// From SDL's mouse events to the game's.
#pragma once

#include "platform/input/Event.h"

#include <SDL.h>

#include <functional>
#include <optional>

namespace platform
{

// From SDL's coordinates in a window to the game's pixels, origin at the bottom left.
using PixelsFromWindow = std::function<Point(int x, int y)>;

// A plain move, a release of the left button, or at least a notch of a wheel; nothing for any other event.
std::optional<Event> TranslateMouse(SDL_Event const& event, PixelsFromWindow const& pixels);

} // namespace platform
