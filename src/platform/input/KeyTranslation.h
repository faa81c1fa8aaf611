// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// From SDL's keys to the characters that an Event carries.
#pragma once

#include <SDL.h>

#include <string>

namespace platform
{

// What a key produces, ignoring Control, Alt and Command but not Shift. typedText: the UTF-8 text that came
// with the key, empty when none did. Empty for modifier keys and for keys that stand for nothing.
std::u16string CharactersForKey(SDL_Keysym const& key, std::string const& typedText);

} // namespace platform
