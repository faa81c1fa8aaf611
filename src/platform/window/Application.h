// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The application: loads the main interface file, shows the view in its window, runs events and timers on the
// main thread, and ends in one orderly way whatever asked for it (a menu, the window's close button, Ctrl+Q,
// SIGTERM, SIGINT, SIGHUP).
#pragma once

#include <memory>

namespace platform
{

class OpenGLView;

// Starts the application from "Main.ini" in the resources' "Interface" folder and runs it to its end.
// Returns the exit status: 0 after an orderly end, with the preferences saved; 1, with one log line, when
// there is no display, no OpenGL or no readable interface file.
int ApplicationMain(std::unique_ptr<OpenGLView> view);

// Asks for the end: the current pass of the run loop is the last.
void Terminate();

} // namespace platform
