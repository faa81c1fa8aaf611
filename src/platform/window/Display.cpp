// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Display.h"

#include "platform/base/Bundle.h"
#include "platform/base/Log.h"

#include <SDL_image.h>
#include <SDL_syswm.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

#if defined(SDL_VIDEO_DRIVER_X11)
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#endif

namespace platform
{

namespace
{

// A control is bound to the character of one key. An input method would swallow keys and compose characters
// from several, and Xlib does so with dead keys; reading its table of compositions takes 6 ms besides.
void SwitchOffInputMethods()
{
    setenv("XMODIFIERS", "@im=none", 1);
    setenv("SDL_IM_MODULE", "none", 1);
    setenv("IBUS_ADDRESS", "none", 1);
    setenv("XCOMPOSEFILE", "/dev/null", 1);
}

void SetHints()
{
    // The desktop finds the program's entry and icon by the class of its windows.
    setenv("SDL_VIDEO_X11_WMCLASS", "quarrow", 1);
    setenv("SDL_VIDEO_WAYLAND_WMCLASS", "quarrow", 1);
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

struct SurfaceDeleter
{
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Icon = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

Icon LoadIcon()
{
    constexpr char const* kName = "quarrow-64.png";
    auto const file = Bundle::pathForResource(kName, "Icons");
    Icon icon(file ? IMG_Load(file->c_str()) : nullptr);
    if (!icon)
    {
        LogFormat("The window's icon %s cannot be used", kName);
    }
    return icon;
}

bool IsX11()
{
    return std::string_view(SDL_GetCurrentVideoDriver()) == "x11";
}

// On X11 the resource Xft.dpi tells the desktop's scale: 96 is a scale of 1.
double ScaleOnX11([[maybe_unused]] SDL_Window* window)
{
    char const* dpi = nullptr;
#if defined(SDL_VIDEO_DRIVER_X11)
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version)
    if (SDL_GetWindowWMInfo(window, &info) == SDL_TRUE)
    {
        dpi = XGetDefault(info.info.x11.display, "Xft", "dpi");
    }
#endif
    return dpi != nullptr ? std::strtod(dpi, nullptr) / 96.0 : 1.0;
}

// A scale above 8 is a mistake in the player's resources; its window would be too large for any display.
int WholeScale(double scale)
{
    return static_cast<int>(std::lround(std::fmin(std::fmax(scale, 1.0), 8.0)));
}

// On X11 a window may ask for the whole screen before it is shown, and has it from its first frame. SDL asks
// only afterwards, and then waits a tenth of a second for a change of size that never comes, since the window
// has the screen's size already.
void AskForFullScreenOnX11([[maybe_unused]] SDL_Window* window)
{
#if defined(SDL_VIDEO_DRIVER_X11)
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version)
    if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE)
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

} // namespace

bool OpenDisplay()
{
    if (SDL_WasInit(SDL_INIT_VIDEO) != 0)
    {
        return true;
    }
    SwitchOffInputMethods();
    SetHints();
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0)
    {
        LogFormat("There is no display: %s", SDL_GetError());
        return false;
    }
    char const* const driver = SDL_GetCurrentVideoDriver();
    if (ShowsNothing(driver))
    {
        LogFormat("There is no display: the video driver \"%s\" shows nothing", driver);
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

void WindowDestroyer::operator()(SDL_Window* window) const
{
    SDL_DestroyWindow(window);
}

RawWindow MakeRawWindow(SDL_Rect const& bounds, unsigned flags)
{
    static Icon const icon = LoadIcon();
    RawWindow window(
        SDL_CreateWindow("Quarrow", bounds.x, bounds.y, bounds.w, bounds.h,
                         flags | SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN | SDL_WINDOW_ALLOW_HIGHDPI));
    if (window && icon)
    {
        SDL_SetWindowIcon(window.get(), icon.get());
    }
    return window;
}

RawWindow MakeFullScreenRawWindow(SDL_Rect const& screen)
{
    if (!IsX11())
    {
        return MakeRawWindow(screen, SDL_WINDOW_BORDERLESS | SDL_WINDOW_FULLSCREEN_DESKTOP);
    }
    RawWindow window = MakeRawWindow(screen, SDL_WINDOW_BORDERLESS);
    if (window)
    {
        AskForFullScreenOnX11(window.get());
    }
    return window;
}

// A minimised window may report a size of 0.
WindowPixels PixelsOf(SDL_Window* window)
{
    int width = 0;
    int height = 0;
    int units = 0;
    SDL_GL_GetDrawableSize(window, &width, &height);
    SDL_GetWindowSize(window, &units, nullptr);
    Size const size{static_cast<float>(std::max(1, width)), static_cast<float>(std::max(1, height))};
    float const perUnit = units > 0 ? size.width / static_cast<float>(units) : 1.0F;
    return {size, perUnit, WholeScale(IsX11() ? ScaleOnX11(window) : double{perUnit})};
}

} // namespace platform
