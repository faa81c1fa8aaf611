// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How a window comes to cover a whole screen. Window makes its borderless windows with this.
#pragma once

#include <SDL.h>

namespace platform
{

// The flags with which a window must be made that AskForFullScreen will be given.
Uint32 FullScreenFlags();

// Asks the desktop to show the hidden window over the whole of its screen, above panels and docks.
void AskForFullScreen(SDL_Window* window);

} // namespace platform
