// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The pasteboard is SDL's clipboard, which belongs to the window system.
#include "platform/sound/Pasteboard.h"

#include "platform/base/Encoding.h"

#include <SDL.h>

#include <memory>

namespace platform
{

Pasteboard Pasteboard::general()
{
    std::unique_ptr<char, void (*)(void*)> const text(SDL_GetClipboardText(), SDL_free);
    return {text ? text.get() : ""};
}

std::optional<std::filesystem::path> Pasteboard::file() const
{
    std::string const line = text.substr(0, text.find_first_of("\r\n"));
    if (line.starts_with('/'))
    {
        return std::filesystem::path(line);
    }
    return PathOfFileURL(line);
}

} // namespace platform
