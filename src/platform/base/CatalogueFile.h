// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Looks a compiled message catalogue over before gettext gets it: gettext trusts the offsets in the file, and
// one that points outside brings the program down.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>

namespace platform
{

// True when every table, text and hash slot lies inside the file and each text ends with a zero byte.
bool IsSoundCatalogue(std::span<std::byte const> file);

// False as well for a file that cannot be read.
bool IsSoundCatalogue(std::filesystem::path const& file);

} // namespace platform
