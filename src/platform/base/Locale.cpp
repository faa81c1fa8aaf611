// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Locale.h"

#include "platform/base/Bundle.h"

#include <libintl.h>

#include <clocale>

void platform::SelectLanguage()
{
    constexpr char const* kDomain = "quarrow";
    std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_MESSAGES, "");
    bindtextdomain(kDomain, Bundle::pathOfCatalogues().c_str());
    bind_textdomain_codeset(kDomain, "UTF-8");
    textdomain(kDomain);
}
