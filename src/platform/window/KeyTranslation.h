// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// From SDL's keys to the characters that an Event carries. Application asks it for each key that goes down or
// up.
#pragma once

#include "platform/window/Event.h"

#include <SDL.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace platform
{

// What a key produces, ignoring Control, Alt and Command but not Shift. typedText: the UTF-8 text that came
// with the key, empty when none did. Empty for modifier keys and for keys that stand for nothing.
std::u16string CharactersForKey(SDL_Keysym const& key, std::string_view typedText);

// Remembers what each key produced when it went down, for the event of its release.
class KeyTranslator
{
public:
    // Nothing for a key without characters.
    std::optional<Event> keyDown(SDL_Keysym const& key, std::string_view typedText);
    std::optional<Event> keyUp(SDL_Keysym const& key);

private:
    std::map<SDL_Scancode, std::u16string> m_down;
};

} // namespace platform
