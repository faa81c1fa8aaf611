// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One line of text laid out by Pango.
#pragma once

#include <pango/pangocairo.h>

#include <string>

namespace platform
{

struct TextAttributes;

// The line, laid out without wrapping. Borrowed, and valid until the next call.
PangoLayout* LayOutLine(std::string const& text, TextAttributes const& attributes);

} // namespace platform
