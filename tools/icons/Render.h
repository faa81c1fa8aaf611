// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The icon's files.
#pragma once

#include <string>

namespace maker
{

// The master drawing, with all detail. False when the file can't be written.
bool WriteIconSvg(std::string const& path);

// A square picture of a size in pixels, with the detail for that size. False when the file can't be
// written.
bool WriteIconPng(std::string const& path, int size);

} // namespace maker
