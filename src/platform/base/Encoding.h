// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Between UTF-8 and UTF-16 units, and between paths and file URLs ("file:///a%20b").
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace platform
{

// Each ill-formed byte becomes U+FFFD.
std::u16string Utf16FromUtf8(std::string const& text);

// U+FFFD for units with an unpaired surrogate.
std::string Utf8FromUtf16(std::u16string const& units);

// The URL of the path, made absolute first. Nothing for an empty path.
std::optional<std::string> FileURLWithPath(std::filesystem::path const& path);

// Nothing for what is no file URL. The name of a host in it is ignored.
std::optional<std::filesystem::path> PathOfFileURL(std::string const& url);

} // namespace platform
