// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
// Part of every program of a sanitizer build: libraries stay loaded until the process has ended. The OpenGL
// drivers and the display's libraries are loaded on demand and unloaded at the end; their leaks would then be
// reported for an "unknown module", which a list of known leaks cannot name.
#include <dlfcn.h>

extern "C" int dlclose(void*) noexcept
{
    return 0;
}
