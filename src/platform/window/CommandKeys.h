// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The keys of commands.
#pragma once

#include "platform/window/InterfaceFile.h"

#include <SDL.h>

namespace platform
{

// Whether the key, with the modifiers held, is one of the command's.
bool HasKey(Command const& command, SDL_Keysym const& key);

} // namespace platform
