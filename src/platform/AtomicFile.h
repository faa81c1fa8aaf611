// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Replacing a file whole or not at all.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform
{

// Writes the text to a new file in the same folder (made when it is missing), syncs it to the disk and
// renames it over the old one, whose permissions it takes. A symbolic link keeps pointing where it did. Empty
// when all went well, else what the system says; the old file is then as it was.
std::string ReplaceFile(std::filesystem::path const& file, std::string_view text);

} // namespace platform
