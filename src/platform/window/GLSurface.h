// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What stands behind an OpenGLContext: the context itself and the windows that it draws into. Internal to the
// platform layer; OpenGLContext.cpp makes it, Window.cpp moves it about.
#pragma once

#include "platform/window/OpenGLView.h"

#include <SDL.h>

#include <memory>

namespace platform
{

struct GLContextDeleter
{
    void operator()(void* context) const { SDL_GL_DeleteContext(context); }
};

struct OpenGLContext::Surface
{
    Surface();
    ~Surface();
    Surface(Surface const&) = delete;
    Surface& operator=(Surface const&) = delete;

    // A context needs a window even while nothing is shown. The first titled Window shows this one.
    std::shared_ptr<SDL_Window> home;
    std::unique_ptr<void, GLContextDeleter> context;
    SDL_Window* target = nullptr; // shows the view

    void drawInto(SDL_Window* window);
    void leave(SDL_Window* window); // goes home when it was the target
    bool makeCurrent() const;

    // The context whose home is still to be taken by a window, or the one that owns the handle; null for
    // none.
    static Surface* main();
    static Surface* owning(void* contextHandle);
};

} // namespace platform
