// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Display.h"

#include "platform/base/Log.h"

#include <SDL.h>

#include <cstdlib>
#include <string_view>

namespace platform
{

namespace
{

// Key bindings take keys as they are: an input method would swallow and compose them, and so would Xlib with
// the dead ones. Its table of compositions takes 6 ms to read, too.
void SwitchOffInputMethods()
{
    setenv("XMODIFIERS", "@im=none", 1);
    setenv("SDL_IM_MODULE", "none", 1);
    setenv("IBUS_ADDRESS", "none", 1);
    setenv("XCOMPOSEFILE", "/dev/null", 1);
}

// Desktops find the program's entry and icon by its window class.
void NameWindowClass()
{
    setenv("SDL_VIDEO_X11_WMCLASS", "quarrow", 1);
    setenv("SDL_VIDEO_WAYLAND_WMCLASS", "quarrow", 1);
}

void SetHints()
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1"); // the application has its own
    SDL_SetHint(SDL_HINT_APP_NAME, "Quarrow");
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "1");
}

// Without a display SDL falls back to drivers that draw into memory.
bool ShowsNothing(std::string_view driver)
{
    return driver == "offscreen" || driver == "dummy" || driver == "evdev";
}

} // namespace

bool OpenDisplay()
{
    if (SDL_WasInit(SDL_INIT_VIDEO) != 0)
    {
        return true;
    }
    SwitchOffInputMethods();
    NameWindowClass();
    SetHints();
    SDL_SetMainReady();
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
    {
        LogFormat("There is no display: %s", SDL_GetError());
        return false;
    }
    char const* const driver = SDL_GetCurrentVideoDriver();
    if (driver == nullptr || ShowsNothing(driver))
    {
        LogFormat("There is no display: the video driver \"%s\" shows nothing",
                  driver != nullptr ? driver : "");
        CloseDisplay();
        return false;
    }
    SDL_DisableScreenSaver();
    return true;
}

void CloseDisplay()
{
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

} // namespace platform
