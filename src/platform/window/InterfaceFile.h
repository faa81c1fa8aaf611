// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The main interface file "Main.toml": the window, the class of the view in it, and the commands with their
// keys.
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
    Size contentSize; // pixels
    std::string viewClass;
    std::vector<Command> commands;

    // Nothing, with one log line that names the file and what is wrong in it, when it cannot be used.
    static std::optional<InterfaceFile> load(std::filesystem::path const& path);
};

// "Ctrl+Q", "Alt+Return", "F11"; nothing for anything else.
std::optional<KeyEquivalent> ParseKeyEquivalent(std::string const& text);

} // namespace platform
