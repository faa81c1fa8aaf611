// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A window of the game's size and kind that is cleared and shown until it is closed: the least that any
// program with a window costs.
#include "platform/base/OpenGL.h"

#include <SDL.h>

int main()
{
    constexpr int kWidth = 1280;
    constexpr int kHeight = 720;
    constexpr Uint32 kPause = 5; // milliseconds
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
    {
        return 1;
    }
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_Window* const window = SDL_CreateWindow("bare", 0, 0, kWidth, kHeight, SDL_WINDOW_OPENGL);
    if (window == nullptr || SDL_GL_CreateContext(window) == nullptr)
    {
        return 1;
    }
    while (SDL_QuitRequested() == SDL_FALSE)
    {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        SDL_GL_SwapWindow(window);
        SDL_Delay(kPause);
    }
    SDL_Quit();
    return 0;
}
