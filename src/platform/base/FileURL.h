// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// File URLs ("file:///a%20b") and the paths that they stand for. Movies are opened by URL.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace platform
{

// The URL of the path, made absolute first. Nothing for an empty path.
std::optional<std::string> FileURLWithPath(std::filesystem::path const& path);

// Nothing for what is no file URL of this machine.
std::optional<std::filesystem::path> PathOfFileURL(std::string const& url);

} // namespace platform
