// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/OpenGLContext.h"

#include "platform/base/Log.h"
#include "platform/window/Display.h"

#include <SDL.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace platform
{

namespace
{

// A texture names its context by a bare handle, and may outlive it.
std::vector<OpenGLContext const*>& LivingContexts()
{
    static std::vector<OpenGLContext const*> contexts;
    return contexts;
}

// These hold for every window made later too, so that the context fits them all.
void SetAttributes(int colorSize, int depthSize)
{
    int const component = colorSize >= 24 ? 8 : colorSize / 3;
    SDL_GL_ResetAttributes();
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, component);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, component);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, component);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, depthSize);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
}

// A driver without desktop OpenGL may hand out OpenGL ES, which lacks everything that the game draws with.
// Calls the driver's own entry point: tests link this file with a recording OpenGL.
bool IsDesktopOpenGL()
{
    using GetString = unsigned char const* (*)(unsigned);
    constexpr unsigned kVersion = 0x1F02; // GL_VERSION
    auto const getString = reinterpret_cast<GetString>(SDL_GL_GetProcAddress("glGetString"));
    unsigned char const* const version = getString != nullptr ? getString(kVersion) : nullptr;
    return version != nullptr &&
           !std::string_view(reinterpret_cast<char const*>(version)).starts_with("OpenGL ES");
}

// The driver works at what it was given so far while this thread waits.
void Flush()
{
    if (auto const flush = reinterpret_cast<void (*)()>(SDL_GL_GetProcAddress("glFlush")))
    {
        flush();
    }
}

// Of the display that shows the window now; 0 when it tells none.
int RefreshRate(SDL_Window* window)
{
    SDL_DisplayMode mode{};
    SDL_GetCurrentDisplayMode(std::max(0, SDL_GetWindowDisplayIndex(window)), &mode);
    return mode.refresh_rate;
}

} // namespace

void OpenGLContext::Deleter::operator()(void* context) const
{
    SDL_GL_DeleteContext(context);
}

std::unique_ptr<OpenGLContext> OpenGLContext::initWithFormat(PixelFormat format)
{
    if (!OpenDisplay())
    {
        return nullptr;
    }
    std::unique_ptr<OpenGLContext> context(new OpenGLContext);
    bool const made =
        context->make(format, format.depthSize) || context->make(format, 24) || context->make(format, 16);
    if (!made || !IsDesktopOpenGL())
    {
        LogFormat("There is no OpenGL: %s", made ? "the driver has OpenGL ES only" : SDL_GetError());
        return nullptr;
    }
    context->drawInto(context->m_home.get());
    return context;
}

OpenGLContext const* OpenGLContext::withHandle(void* handle)
{
    auto const& living = LivingContexts();
    auto const found = std::ranges::find_if(living, [handle](OpenGLContext const* context)
                                            { return context->m_context.get() == handle; });
    return handle != nullptr && found != living.end() ? *found : nullptr;
}

OpenGLContext::OpenGLContext()
{
    LivingContexts().push_back(this);
}

OpenGLContext::~OpenGLContext()
{
    std::erase(LivingContexts(), this);
}

bool OpenGLContext::make(PixelFormat format, int depthSize)
{
    SetAttributes(format.colorSize, depthSize);
    m_home = MakeRawWindow({SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 1, 1}, 0);
    m_context.reset(m_home ? SDL_GL_CreateContext(m_home.get()) : nullptr);
    return m_context != nullptr;
}

bool OpenGLContext::makeCurrentContext() const
{
    return SDL_GL_MakeCurrent(m_target, m_context.get()) == 0;
}

void OpenGLContext::flushBuffer()
{
    if (m_waitsForDisplay && !m_driverWaits)
    {
        Flush();
        m_pace.waitForRefresh(RefreshRate(m_target));
    }
    SDL_GL_SwapWindow(m_target);
}

void OpenGLContext::setWaitsForDisplay(bool waits)
{
    m_waitsForDisplay = waits;
    setSwapInterval();
}

// The interval belongs to the window on some systems, hence after every change of windows.
void OpenGLContext::setSwapInterval()
{
    constexpr int kAdaptive = -1;
    if (m_waitsForDisplay)
    {
        m_driverWaits = SDL_GL_SetSwapInterval(kAdaptive) == 0 || SDL_GL_SetSwapInterval(1) == 0;
    }
    else
    {
        SDL_GL_SetSwapInterval(0);
    }
}

bool OpenGLContext::drawInto(SDL_Window* window)
{
    if (SDL_GL_MakeCurrent(window, m_context.get()) != 0)
    {
        return false;
    }
    m_target = window;
    setSwapInterval();
    return true;
}

void OpenGLContext::leave(SDL_Window* window)
{
    if (m_target == window)
    {
        m_target = m_home.get();
        drawInto(m_target);
    }
}

} // namespace platform
