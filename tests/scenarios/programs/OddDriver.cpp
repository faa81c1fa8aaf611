// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An OpenGL driver with less to offer than the one at hand, by way of LD_PRELOAD. ODD_DRIVER says which:
//   es       only OpenGL ES
//   depth16  no depth buffer of more than 16 bits
//   framed   no window without a frame
//   unlit    windows without a frame, into which nothing can be drawn
// test_devices.py starts the game with it.
#include <dlfcn.h>
#include <SDL.h>

#include <cstdlib>
#include <cstring>

namespace
{

int askedDepth = 0; // bits

bool Is(char const* driver)
{
    char const* const wanted = std::getenv("ODD_DRIVER");
    return wanted != nullptr && std::strcmp(wanted, driver) == 0;
}

// The library's own function of that name.
template <typename Function>
Function Real(char const* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool HasFrame(Uint32 flags)
{
    return (flags & SDL_WINDOW_BORDERLESS) == 0;
}

unsigned char const* VersionOfES(unsigned)
{
    return reinterpret_cast<unsigned char const*>("OpenGL ES 3.2 Odd Driver");
}

} // namespace

extern "C" void* SDL_GL_GetProcAddress(char const* name)
{
    if (Is("es") && std::strcmp(name, "glGetString") == 0)
    {
        return reinterpret_cast<void*>(VersionOfES);
    }
    return Real<void* (*)(char const*)>("SDL_GL_GetProcAddress")(name);
}

extern "C" int SDL_GL_SetAttribute(SDL_GLattr attribute, int value)
{
    askedDepth = attribute == SDL_GL_DEPTH_SIZE ? value : askedDepth;
    return Real<int (*)(SDL_GLattr, int)>("SDL_GL_SetAttribute")(attribute, value);
}

extern "C" SDL_GLContext SDL_GL_CreateContext(SDL_Window* window)
{
    if (Is("depth16") && askedDepth > 16)
    {
        SDL_SetError("no such depth buffer");
        return nullptr;
    }
    return Real<SDL_GLContext (*)(SDL_Window*)>("SDL_GL_CreateContext")(window);
}

extern "C" SDL_Window* SDL_CreateWindow(char const* title, int x, int y, int width, int height, Uint32 flags)
{
    if (Is("framed") && !HasFrame(flags))
    {
        SDL_SetError("no such window");
        return nullptr;
    }
    return Real<SDL_Window* (*)(char const*, int, int, int, int, Uint32)>("SDL_CreateWindow")(
        title, x, y, width, height, flags);
}

extern "C" int SDL_GL_MakeCurrent(SDL_Window* window, SDL_GLContext context)
{
    if (Is("unlit") && window != nullptr && !HasFrame(SDL_GetWindowFlags(window)))
    {
        return SDL_SetError("no drawing there");
    }
    return Real<int (*)(SDL_Window*, SDL_GLContext)>("SDL_GL_MakeCurrent")(window, context);
}
