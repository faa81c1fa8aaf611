// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/CommandKeys.h"

#include <algorithm>

namespace platform
{

namespace
{

// A layout of another script has no such letter: there the place on the keyboard counts.
bool IsKeyNamed(std::string const& name, SDL_Keysym const& key)
{
    bool const isOtherScript = key.sym > 0x7F && (key.sym & SDLK_SCANCODE_MASK) == 0;
    return isOtherScript ? SDL_GetScancodeFromName(name.c_str()) == key.scancode
                         : SDL_GetKeyFromName(name.c_str()) == key.sym;
}

bool Matches(KeyEquivalent const& equivalent, SDL_Keysym const& key)
{
    auto const held = [&key](int mask) { return (key.mod & mask) != 0; };
    return IsKeyNamed(equivalent.key, key) && equivalent.control == held(KMOD_CTRL) &&
           equivalent.alt == held(KMOD_ALT) && equivalent.shift == held(KMOD_SHIFT) && !held(KMOD_GUI);
}

} // namespace

bool HasKey(Command const& command, SDL_Keysym const& key)
{
    return std::ranges::any_of(command.keys,
                               [&key](KeyEquivalent const& equivalent) { return Matches(equivalent, key); });
}

} // namespace platform
