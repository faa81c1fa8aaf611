// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// On X11 a window may ask for the whole screen before it is shown, and has it from its first frame. SDL asks
// only afterwards, and then waits a tenth of a second for a change of size that never comes, since the window
// has the screen's size already.
#include "platform/window/FullScreen.h"

#include <SDL_syswm.h>

#include <string_view>

#if defined(SDL_VIDEO_DRIVER_X11)
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#endif

namespace platform
{
namespace
{

bool IsX11()
{
#if defined(SDL_VIDEO_DRIVER_X11)
    char const* const driver = SDL_GetCurrentVideoDriver();
    return driver != nullptr && std::string_view(driver) == "x11";
#else
    return false;
#endif
}

} // namespace

Uint32 FullScreenFlags()
{
    return SDL_WINDOW_BORDERLESS | (IsX11() ? 0U : Uint32{SDL_WINDOW_FULLSCREEN_DESKTOP});
}

void AskForFullScreen([[maybe_unused]] SDL_Window* window)
{
#if defined(SDL_VIDEO_DRIVER_X11)
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version)
    if (!IsX11() || SDL_GetWindowWMInfo(window, &info) != SDL_TRUE)
    {
        return;
    }
    Display* const display = info.info.x11.display;
    Atom const state = XInternAtom(display, "_NET_WM_STATE", False);
    Atom const fullScreen = XInternAtom(display, "_NET_WM_STATE_FULLSCREEN", False);
    XChangeProperty(display, info.info.x11.window, state, XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<unsigned char const*>(&fullScreen), 1);
#endif
}

} // namespace platform
