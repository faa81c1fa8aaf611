// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/UserFolders.h"

#include <cstdlib>

#if !defined(_WIN32)
#include <pwd.h>
#include <unistd.h>
#endif

namespace platform
{

namespace
{

namespace fs = std::filesystem;

// Only an absolute path counts.
fs::path FromEnvironment(char const* name)
{
    char const* const value = std::getenv(name);
    fs::path path = value != nullptr ? value : "";
    return path.is_absolute() ? path : fs::path();
}

#if !defined(_WIN32)
fs::path Home()
{
    fs::path home = FromEnvironment("HOME");
    if (home.empty())
    {
        passwd const* const user = ::getpwuid(::getuid());
        home = user != nullptr ? user->pw_dir : "";
    }
    return home;
}
#endif

fs::path AllPrograms()
{
#if defined(_WIN32)
    return FromEnvironment("APPDATA");
#elif defined(__APPLE__)
    fs::path const home = Home();
    return home.empty() ? home : home / "Library" / "Preferences";
#else
    if (fs::path configured = FromEnvironment("XDG_CONFIG_HOME"); !configured.empty())
    {
        return configured;
    }
    fs::path const home = Home();
    return home.empty() ? home : home / ".config";
#endif
}

} // namespace

fs::path ConfigurationFolder()
{
    fs::path const folder = AllPrograms();
    return folder.empty() ? folder : folder / "quarrow";
}

} // namespace platform
