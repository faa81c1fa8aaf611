// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Replacing a file whole or not at all, and keeping other processes from doing the same meanwhile. The
// preferences are the caller.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform
{

// Writes the text to a new file in the same folder (made when it is missing), syncs it to the disk and
// renames it over the old one, whose permissions it takes. A symbolic link keeps pointing where it did. Empty
// when all went well, else what the system says; the old file is then as it was. New files that a process
// left behind because it was ended half way are cleared away after a minute.
std::string ReplaceFile(std::filesystem::path const& file, std::string_view text);

// Keeps other holders off the folder, made when it is missing, while it lives. Goes without after about a
// second: a process that hangs with the lock must not hang this one.
class FolderLock
{
public:
    explicit FolderLock(std::filesystem::path const& folder);
    ~FolderLock();
    FolderLock(FolderLock const&) = delete;
    FolderLock& operator=(FolderLock const&) = delete;

private:
    int m_descriptor = -1;
};

} // namespace platform
