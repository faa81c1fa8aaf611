// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// From SDL's mouse events to the game's, for the window in which they happened. Application is the caller.
#pragma once

#include "platform/window/Event.h"

#include <SDL.h>

#include <optional>

namespace platform
{

class Window;

Event TranslateMouseMotion(SDL_MouseMotionEvent const& motion, Window const& window);

// Nothing for a button other than the left and the right.
std::optional<Event> TranslateMouseUp(SDL_MouseButtonEvent const& button, Window const& window);

// Nothing while a finely graded wheel is between two notches.
std::optional<Event> TranslateMouseWheel(SDL_MouseWheelEvent const& wheel, Window const& window);

} // namespace platform
