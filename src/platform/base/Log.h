// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The system log: one line to standard error a call.
#pragma once

#include <string_view>

namespace platform
{

// Writes "quarrow: ", the text without its trailing line ends, and one line end. Line ends within the text
// become spaces.
void Log(std::string_view text);

// The same, with printf's conversions; the text ends after 8 KiB.
[[gnu::format(printf, 1, 2)]] void LogFormat(char const* format, ...);

} // namespace platform
