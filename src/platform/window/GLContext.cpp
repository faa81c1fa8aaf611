// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/GLContext.h"

#include "platform/base/OpenGL.h"
#include "platform/window/GLSurface.h"

namespace platform
{

GLContextRef CurrentGLContext()
{
    return SDL_GL_GetCurrentContext();
}

void DeleteTextureInContext(GLContextRef context, unsigned texture)
{
    OpenGLContext::Surface const* const owner = OpenGLContext::Surface::owning(context);
    if (owner == nullptr)
    {
        return;
    }
    SDL_GLContext const current = SDL_GL_GetCurrentContext();
    SDL_Window* const currentWindow = SDL_GL_GetCurrentWindow();
    if (current != context && !owner->makeCurrent())
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
