// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/SettingsFile.h"

#include "platform/base/Log.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <system_error>

namespace platform
{

namespace
{

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 20U; // bytes

// An empty file, or null when the broken one cannot be moved.
KeyFile SetAside(fs::path const& file, std::string const& reason, bool tellIfStuck)
{
    g_autoptr(GDateTime) now = g_date_time_new_now_local();
    g_autofree char* date = g_date_time_format(now, "%Y-%m-%d-%H%M%S");
    fs::path const aside = file.string() + ".broken-" + date;
    std::error_code error;
    fs::rename(file, aside, error);
    std::string const told = "The settings in " + file.string() + " cannot be used (" + reason + "); ";
    if (!error)
    {
        Log(told + "they are kept as " + aside.filename().string() + ", and defaults are used");
        return KeyFile(g_key_file_new());
    }
    if (tellIfStuck)
    {
        Log(told + "they stay as they are, defaults are used and nothing is saved");
    }
    return nullptr;
}

// Follows symbolic links, also where the last of them names nothing.
fs::path WhatLinkNames(fs::path file)
{
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(file, error); ++i)
    {
        file = file.parent_path() / fs::read_symlink(file, error);
    }
    return file;
}

} // namespace

KeyFile LoadSettings(fs::path const& file, bool tellIfStuck)
{
    std::error_code error;
    KeyFile settings(g_key_file_new());
    if (fs::status(file, error).type() == fs::file_type::not_found)
    {
        return settings;
    }
    std::uintmax_t const size = fs::file_size(file, error);
    if (!error && size > kLargestFile)
    {
        error = std::make_error_code(std::errc::file_too_large);
    }
    if (error)
    {
        return SetAside(file, error.message(), tellIfStuck);
    }
    constexpr auto kAll = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    g_autoptr(GError) problem = nullptr;
    if (g_key_file_load_from_file(settings.get(), file.c_str(), kAll, &problem) == 0)
    {
        return SetAside(file, problem->message, tellIfStuck);
    }
    return settings;
}

bool SaveSettings(fs::path const& file, GKeyFile* settings, bool tellIfRefused)
{
    constexpr auto kSafely =
        static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
    constexpr fs::perms kOnlyThePlayer = fs::perms::owner_read | fs::perms::owner_write;
    fs::path const target = WhatLinkNames(file);
    std::error_code error;
    fs::file_status const old = fs::status(target, error);
    auto const mode = static_cast<int>(fs::exists(old) ? old.permissions() : kOnlyThePlayer);
    gsize length = 0;
    g_autofree char* text = g_key_file_to_data(settings, &length, nullptr);
    g_autoptr(GError) problem = nullptr;
    bool const isSaved = g_file_set_contents_full(target.c_str(), text, static_cast<gssize>(length), kSafely,
                                                  mode, &problem) != 0;
    if (!isSaved && tellIfRefused)
    {
        Log("The settings cannot be saved to " + file.string() + ": " + problem->message);
    }
    return isSaved;
}

FolderLock::FolderLock(fs::path const& folder)
{
    constexpr int kOnlyThePlayer = 0700;
    g_mkdir_with_parents(folder.c_str(), kOnlyThePlayer);
    m_descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // Short, to find the lock free also between two saves of a game that saves in a loop.
    constexpr gulong kPause = 100; // microseconds
    constexpr int kTries = 8000;
    for (int i = 0; m_descriptor >= 0 && i < kTries && ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0; ++i)
    {
        g_usleep(kPause);
    }
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
    {
        ::close(m_descriptor);
    }
}

} // namespace platform
