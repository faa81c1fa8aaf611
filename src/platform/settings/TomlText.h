// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A TOML document as text that reads back as it was. toml++ 3.3 reads more than it prints well: keys with an
// apostrophe or a control character lose their quotes, texts of several lines their first break, and a number
// gets seventeen digits.
#pragma once

#include <toml++/toml.h>

#include <string>

namespace platform
{

// One line for each plain value, then the sections, each after a blank line. Texts are well-formed UTF-8.
std::string TomlText(toml::table const& document);

} // namespace platform
