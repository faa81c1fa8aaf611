// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Owning pointer for GLib's key files: groups of "key=value" lines, such as desktop entries are.
#pragma once

#include <glib.h>

#include <memory>

namespace platform
{

struct KeyFileDeleter
{
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};

using KeyFile = std::unique_ptr<GKeyFile, KeyFileDeleter>;

} // namespace platform
