// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Logs every frame that is shown, by way of LD_PRELOAD: "frame" and the microseconds since the one before.
#include <dlfcn.h>
#include <SDL.h>

#include <chrono>
#include <cstdio>

using Clock = std::chrono::steady_clock;

extern "C" void SDL_GL_SwapWindow(SDL_Window* window)
{
    static auto const real = reinterpret_cast<void (*)(SDL_Window*)>(dlsym(RTLD_NEXT, "SDL_GL_SwapWindow"));
    static Clock::time_point last = Clock::now();
    real(window);
    auto const now = Clock::now();
    auto const elapsed = std::chrono::duration_cast<std::chrono::microseconds>(now - last);
    std::fprintf(stderr, "frame %lld\n", static_cast<long long>(elapsed.count()));
    last = now;
}
