// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The game's icon on its windows.
#pragma once

struct SDL_Window;

namespace platform
{

// From the resources' "Icons" folder; a window without it is as good.
void SetWindowIcon(SDL_Window* window);

} // namespace platform
