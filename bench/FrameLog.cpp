// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Preloaded into a program, it writes a line for each frame shown to the file that FRAME_LOG names:
// nanoseconds of the monotonic clock, and of the process's processor time. It stands in for what shows a
// frame in SDL 2, in SDL 1.2 and in programs that call GLX themselves; both versions of SDL look GLX up
// inside its library, so that no frame is noted twice.
#include <dlfcn.h>
#include <SDL.h>

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

namespace
{

// The function that this library's own of the same name hides.
template <typename Function>
Function* Hidden(char const* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
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

void NoteFrame()
{
    static std::unique_ptr<std::FILE, int (*)(std::FILE*)> const log(OpenLog(), std::fclose);
    if (log)
    {
        std::fprintf(log.get(), "%" PRId64 " %" PRId64 "\n", Now(CLOCK_MONOTONIC),
                     Now(CLOCK_PROCESS_CPUTIME_ID));
        std::fflush(log.get());
    }
}

} // namespace

extern "C" void SDL_GL_SwapWindow(SDL_Window* window)
{
    static auto const show = Hidden<void(SDL_Window*)>("SDL_GL_SwapWindow");
    show(window);
    NoteFrame();
}

extern "C" void SDL_GL_SwapBuffers()
{
    static auto const show = Hidden<void()>("SDL_GL_SwapBuffers");
    show();
    NoteFrame();
}

extern "C" void glXSwapBuffers(void* display, unsigned long drawable)
{
    static auto const show = Hidden<void(void*, unsigned long)>("glXSwapBuffers");
    show(display, drawable);
    NoteFrame();
}
