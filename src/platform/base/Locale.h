// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#pragma once

namespace platform
{

// Makes Bundle::localizedString answer in the language of the user's locale, in UTF-8; in English where the
// system has no such locale or the game no such catalogue. Numbers keep their C form. Call it before threads
// are started.
void SelectLanguage();

} // namespace platform
