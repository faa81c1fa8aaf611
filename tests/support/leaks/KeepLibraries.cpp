// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
// Part of every program of a sanitizer build: libraries stay loaded until the process has ended. The OpenGL
// drivers and the display's libraries are loaded on demand and unloaded on the way out; what they left behind
// would then be reported as leaks of an "unknown module", which no list of known leaks can name.
#include <dlfcn.h>

extern "C" int dlclose(void*) noexcept
{
    return 0;
}
