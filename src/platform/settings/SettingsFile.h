// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The TOML file behind the preferences: read whole, written whole.
#pragma once

#include "platform/settings/Preferences.h"

#include <toml++/toml.h>

#include <filesystem>
#include <optional>
#include <string>

namespace platform
{

// The file's table; empty when there is no file. One that cannot be read or parsed is renamed to
// "<name>.broken-<date>", with one log line, and counts as none. Nothing when it cannot even be renamed and
// still is where it was; that is logged only if tellIfStuck.
std::optional<toml::table> LoadSettings(std::filesystem::path const& file, bool tellIfStuck);

// Empty when all went well, else what the system says.
std::string SaveSettings(std::filesystem::path const& file, toml::table const& table);

// A float is stored as the shortest decimal that reads back as the same 32-bit float.
void StoreValue(toml::table& table, std::string const& key, Preferences::Value const& value);

} // namespace platform
