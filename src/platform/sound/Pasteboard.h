// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the user copied last, as text. File managers put copied files there as URLs or paths, one a line.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace platform
{

struct Pasteboard
{
    std::string text;

    // The desktop's; empty without a window.
    static Pasteboard general();

    // The first file in it, if its first line names one.
    std::optional<std::filesystem::path> file() const;
};

} // namespace platform
