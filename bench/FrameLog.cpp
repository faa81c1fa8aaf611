// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Preloaded into a program, it writes a line for each frame shown to the file that FRAME_LOG names:
// nanoseconds of the monotonic clock, and of the process's processor time.
#include <dlfcn.h>
#include <SDL.h>

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

namespace
{

using Swap = void (*)(SDL_Window*);

Swap RealSwap()
{
    return reinterpret_cast<Swap>(dlsym(RTLD_NEXT, "SDL_GL_SwapWindow"));
}

std::FILE* OpenLog()
{
    char const* const path = std::getenv("FRAME_LOG");
    return path != nullptr ? std::fopen(path, "w") : nullptr;
}

std::int64_t Now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return std::int64_t{time.tv_sec} * 1000000000 + time.tv_nsec;
}

} // namespace

extern "C" __attribute__((visibility("default"))) void SDL_GL_SwapWindow(SDL_Window* window)
{
    static Swap const swap = RealSwap();
    static std::unique_ptr<std::FILE, int (*)(std::FILE*)> const log(OpenLog(), std::fclose);
    swap(window);
    if (log)
    {
        std::fprintf(log.get(), "%" PRId64 " %" PRId64 "\n", Now(CLOCK_MONOTONIC),
                     Now(CLOCK_PROCESS_CPUTIME_ID));
        std::fflush(log.get());
    }
}
