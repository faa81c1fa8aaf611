// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Between UTF-8, which files and menus speak, and UTF-16 units, which key events and bindings speak.
#pragma once

#include <string>
#include <string_view>

namespace platform
{

// Ill-formed input becomes U+FFFD, one for each offending byte or unit.
std::u16string Utf16FromUtf8(std::string_view text);
std::string Utf8FromUtf16(std::u16string_view text);

} // namespace platform
