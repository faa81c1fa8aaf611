// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The language of the user's locale, chosen for gettext. Bundle is the caller.
//
// The wish is read as every desktop program reads it: LC_ALL, else LC_MESSAGES, else LANG names the locale,
// and LANGUAGE, a list with colons between, goes before it unless that locale is plain C. It holds on a
// system that has not generated the locale named, too.
#pragma once

#include <filesystem>
#include <string>

namespace platform
{

// Makes gettext's lookups in the domain answer from the catalogue
// "<folder>/<language>/LC_MESSAGES/<domain>.mo" of the first language wished for that has one, in UTF-8.
// English where there is none, or where it is damaged (one log line). Sets LANGUAGE to the choice and the
// locale's categories of messages and characters; numbers keep their C form. Call it before threads are
// started that read the environment.
void SelectLanguage(std::string const& domain, std::filesystem::path const& folder);

} // namespace platform
