// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A disk that takes half a second for each fsync, by way of LD_PRELOAD. It logs each one as it begins, and
// every frame that is shown: "frame" and the microseconds since the one before. test_slow_disk.py starts the
// game with it.
#include <dlfcn.h>
#include <SDL.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

using Clock = std::chrono::steady_clock;

extern "C" int fsync(int)
{
    std::fputs("fsync\n", stderr);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    return 0;
}

extern "C" void SDL_GL_SwapWindow(SDL_Window* window)
{
    static auto const real = reinterpret_cast<void (*)(SDL_Window*)>(dlsym(RTLD_NEXT, "SDL_GL_SwapWindow"));
    static Clock::time_point last = Clock::now();
    real(window);
    auto const now = Clock::now();
    std::fprintf(
        stderr, "frame %lld\n",
        static_cast<long long>(std::chrono::duration_cast<std::chrono::microseconds>(now - last).count()));
    last = now;
}
