// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Where a user's files belong on each platform.
#pragma once

#include <filesystem>

namespace platform
{

// The game's configuration folder, which need not exist. Empty when the system tells of no home.
std::filesystem::path ConfigurationFolder();

} // namespace platform
