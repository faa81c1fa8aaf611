// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The application: loads the main interface file, pumps events and timers on the main thread, and ends in one
// orderly way whatever asked for it (a menu, the window's close button, Ctrl+Q, SIGTERM, SIGINT, SIGHUP).
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace platform
{

class OpenGLView;
class Window;

// Makes a view of the class that the interface file names.
using ViewClasses = std::map<std::string, std::function<std::unique_ptr<OpenGLView>()>>;

class Application
{
public:
    // The one application; null outside ApplicationMain().
    static Application* shared();

    // Runs until terminate(); then saves the preferences and leaves. The process's exit status.
    virtual int run() = 0;

    // Asks for the end: the current pass of the run loop is the last.
    virtual void terminate() = 0;

    // The window that has the keyboard, or the last that was given it; null before the interface is loaded.
    virtual Window* keyWindow() = 0;

protected:
    Application() = default;
    ~Application() = default;
};

// Starts the application from "Main.ini" in the resources' "Interface" folder and runs it to its end.
// Returns the exit status: 0 after an orderly end; 1, with one log line, when there is no display, no OpenGL
// or no readable interface file.
int ApplicationMain(ViewClasses const& viewClasses);

} // namespace platform
