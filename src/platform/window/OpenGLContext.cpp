// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Making the one context: the nearest depth that the driver has, and a swap that waits for the display if it
// can.
#include "platform/base/Log.h"
#include "platform/window/Display.h"
#include "platform/window/GLSurface.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace platform
{

namespace
{

std::vector<OpenGLContext::Surface*>& LiveSurfaces()
{
    static std::vector<OpenGLContext::Surface*> surfaces;
    return surfaces;
}

// These hold for every window made later too, so that the context fits them all.
void SetAttributes(PixelFormat const& format, int depthSize)
{
    int const component = format.colorSize() >= 24 ? 8 : format.colorSize() / 3;
    SDL_GL_ResetAttributes();
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, component);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, component);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, component);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, depthSize);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, format.doubleBuffer() ? 1 : 0);
}

std::shared_ptr<SDL_Window> MakeHome(Size size)
{
    constexpr Uint32 kFlags =
        SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI;
    SDL_Window* const window = SDL_CreateWindow("Quarrow", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                                std::max(1, static_cast<int>(size.width)),
                                                std::max(1, static_cast<int>(size.height)), kFlags);
    return window != nullptr ? std::shared_ptr<SDL_Window>(window, SDL_DestroyWindow) : nullptr;
}

// A driver without desktop OpenGL may hand out OpenGL ES, which lacks everything that the game draws with.
// Asked through the driver's own entry point: this file is linked where another OpenGL stands in, too.
bool IsDesktopOpenGL()
{
    using GetString = unsigned char const* (*)(unsigned);
    constexpr unsigned kVersion = 0x1F02; // GL_VERSION
    auto const getString = reinterpret_cast<GetString>(SDL_GL_GetProcAddress("glGetString"));
    unsigned char const* const version = getString != nullptr ? getString(kVersion) : nullptr;
    return version != nullptr &&
           !std::string_view(reinterpret_cast<char const*>(version)).starts_with("OpenGL ES");
}

bool MakeWithDepth(OpenGLContext::Surface& surface, PixelFormat const& format, int depthSize, Size size)
{
    SetAttributes(format, depthSize);
    surface.home = MakeHome(size);
    if (!surface.home)
    {
        return false;
    }
    surface.context.reset(SDL_GL_CreateContext(surface.home.get()));
    return surface.context != nullptr;
}

bool MakeWithNearestDepth(OpenGLContext::Surface& surface, PixelFormat const& format, Size size)
{
    for (int const depthSize : {format.depthSize(), 24, 16})
    {
        if (depthSize <= format.depthSize() && MakeWithDepth(surface, format, depthSize, size))
        {
            return true;
        }
    }
    return false;
}

// The interval belongs to the window on some systems, hence after every change of windows.
void WaitForDisplayAtSwap()
{
    constexpr int kAdaptive = -1;
    if (SDL_GL_SetSwapInterval(kAdaptive) != 0)
    {
        SDL_GL_SetSwapInterval(1);
    }
}

} // namespace

OpenGLContext::Surface::Surface()
{
    LiveSurfaces().push_back(this);
}

OpenGLContext::Surface::~Surface()
{
    std::erase(LiveSurfaces(), this);
}

OpenGLContext::Surface* OpenGLContext::Surface::main()
{
    auto const& live = LiveSurfaces();
    auto const found =
        std::find_if(live.begin(), live.end(), [](Surface const* s) { return s->home != nullptr; });
    return found != live.end() ? *found : nullptr;
}

OpenGLContext::Surface* OpenGLContext::Surface::owning(void* contextHandle)
{
    auto const& live = LiveSurfaces();
    auto const found = std::find_if(live.begin(), live.end(),
                                    [contextHandle](Surface const* s)
                                    { return s->context && s->context.get() == contextHandle; });
    return found != live.end() ? *found : nullptr;
}

bool OpenGLContext::Surface::makeCurrent() const
{
    return context && SDL_GL_MakeCurrent(target, context.get()) == 0;
}

void OpenGLContext::Surface::drawInto(SDL_Window* window)
{
    target = window;
    if (makeCurrent())
    {
        WaitForDisplayAtSwap();
    }
}

void OpenGLContext::Surface::leave(SDL_Window* window)
{
    if (target == window && window != home.get())
    {
        drawInto(home.get());
    }
}

OpenGLContext::OpenGLContext() : m_surface(std::make_unique<Surface>())
{
}

OpenGLContext::~OpenGLContext() = default;

bool OpenGLContext::create(PixelFormat const& format, Size size)
{
    if (!OpenDisplay())
    {
        return false;
    }
    bool const made = MakeWithNearestDepth(*m_surface, format, size);
    if (!made || !IsDesktopOpenGL())
    {
        LogFormat("There is no OpenGL: %s", made ? "the driver has OpenGL ES only" : SDL_GetError());
        m_surface = std::make_unique<Surface>();
        return false;
    }
    m_surface->drawInto(m_surface->home.get());
    return true;
}

void OpenGLContext::makeCurrentContext()
{
    m_surface->makeCurrent();
}

void OpenGLContext::flushBuffer()
{
    if (m_surface->context)
    {
        SDL_GL_SwapWindow(m_surface->target);
    }
}

} // namespace platform
