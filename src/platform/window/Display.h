// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The connection to the desktop's display, which windows and the OpenGL context need.
#pragma once

namespace platform
{

// Opens it unless it is open. False, with one log line, when nobody could see what is drawn: there is no
// display, or only a driver that shows nothing.
bool OpenDisplay();

void CloseDisplay();

} // namespace platform
