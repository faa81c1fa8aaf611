// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One line of text laid out by Pango. Text measures and draws with it.
// The layout object is shared by all lines: making one costs more than laying out a short line.
#pragma once

#include <pango/pangocairo.h>

#include <string>

namespace platform
{

class TextAttributes;

// Has Pango look for fonts, which it does on a thread of its own until the first line is laid out.
void PrepareText();

// The line, laid out without wrapping; control characters stand as blanks and invalid bytes as replacement
// characters. Borrowed, and valid until the next call.
PangoLayout* LayOutLine(std::string const& text, TextAttributes const& attributes);

} // namespace platform
