// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Preloaded into a program that looks its own user up in the password file, it answers with the home folder
// of HOME.
#include <dlfcn.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

extern "C" passwd* getpwuid(uid_t)
{
    static auto const real = reinterpret_cast<passwd* (*)(uid_t)>(dlsym(RTLD_NEXT, "getpwuid"));
    passwd* const entry = real(getuid());
    if (entry != nullptr)
    {
        entry->pw_dir = std::getenv("HOME");
    }
    return entry;
}
