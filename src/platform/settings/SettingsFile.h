// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The key file behind the preferences: read whole, written whole or not at all.
#pragma once

#include "platform/base/KeyFile.h"

#include <filesystem>

namespace platform
{

// The file with its comments; empty when there is none. One that cannot be read or parsed is renamed to
// "<name>.broken-<date>", with one log line, and counts as none. Null when it cannot even be renamed and
// still is where it was; that is logged only if tellIfStuck.
KeyFile LoadSettings(std::filesystem::path const& file, bool tellIfStuck);

// Replaces the file, that which it names if it is a symbolic link, and keeps its permissions. False when the
// disk refuses, which is logged if tellIfRefused; the old file is then as it was.
bool SaveSettings(std::filesystem::path const& file, GKeyFile* settings, bool tellIfRefused);

// While it lives no other running game saves to the folder, which is made when it is missing. Stops waiting
// after about a second: a game that hangs during its save must not hang this one.
class FolderLock
{
public:
    explicit FolderLock(std::filesystem::path const& folder);
    ~FolderLock();
    FolderLock(FolderLock const&) = delete;
    FolderLock& operator=(FolderLock const&) = delete;

private:
    int m_descriptor;
};

} // namespace platform
