// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The main interface file "Main.ini": the window, and the commands with their keys. It is installed with the
// game and trusted.
#pragma once

#include "platform/base/Geometry.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace platform
{

struct KeyEquivalent
{
    bool control = false;
    bool alt = false;
    bool shift = false;
    std::string key; // as SDL names it, without regard to case: "Q", "F11", "Return"
};

struct Command
{
    std::string action; // "toggleFullScreen" or "terminate"
    std::vector<KeyEquivalent> keys;
};

struct InterfaceFile
{
    std::string windowTitle;
    Size contentSize; // the game's pixels
    std::vector<Command> commands;

    // Nothing, with one log line that names the file, when it cannot be read or is no key file.
    static std::optional<InterfaceFile> load(std::filesystem::path const& path);
};

} // namespace platform
