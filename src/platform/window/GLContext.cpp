// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/GLContext.h"

#include "platform/base/OpenGL.h"
#include "platform/window/OpenGLContext.h"
#include "platform/window/Window.h"

#include <SDL.h>

namespace platform
{

GLContextRef CurrentGLContext()
{
    return SDL_GL_GetCurrentContext();
}

int DisplayScale()
{
    Window const* const window = Window::withIdentifier(SDL_GetWindowID(SDL_GL_GetCurrentWindow()));
    return window != nullptr ? window->scale() : 1;
}

void DeleteTextureInContext(GLContextRef context, unsigned texture)
{
    OpenGLContext const* const owner = OpenGLContext::withHandle(context);
    SDL_GLContext const current = SDL_GL_GetCurrentContext();
    SDL_Window* const currentWindow = SDL_GL_GetCurrentWindow();
    if (owner == nullptr || (current != context && !owner->makeCurrentContext()))
    {
        return;
    }
    glDeleteTextures(1, &texture);
    if (current != context)
    {
        SDL_GL_MakeCurrent(currentWindow, current);
    }
}

} // namespace platform
