// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The desktop's display: the connection to it, SDL's windows on it, and the pixels that they have.
#pragma once

#include "platform/base/Geometry.h"

#include <memory>

struct SDL_Rect;
struct SDL_Window;

namespace platform
{

// Opens the display unless it is open. False, with one log line, when there is no display, or only a driver
// that draws into memory.
bool OpenDisplay();

void CloseDisplay();

struct WindowDestroyer
{
    void operator()(SDL_Window* window) const;
};
using RawWindow = std::unique_ptr<SDL_Window, WindowDestroyer>;

// Hidden, with the game's icon; OpenGL can draw into it. bounds: in the desktop's units. flags: SDL's,
// besides those that every window of the game has. Null when the display refuses; SDL_GetError() tells why.
RawWindow MakeRawWindow(SDL_Rect const& bounds, unsigned flags);

// Hidden; when it is shown it covers the screen with those bounds, above panels and docks.
RawWindow MakeFullScreenRawWindow(SDL_Rect const& screen);

// The display's pixels that a window has.
struct WindowPixels
{
    Size size;            // at least one each way
    float perUnit = 1.0F; // for each unit in which the desktop places and sizes windows
    int scale = 1;        // for each of the game's pixels, in both directions: the desktop's scale, rounded
};
WindowPixels PixelsOf(SDL_Window* window);

} // namespace platform
