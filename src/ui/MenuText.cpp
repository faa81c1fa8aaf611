// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "ui/MenuText.h"

#include "platform/base/Bundle.h"
#include "ui/Menu.h"

#include <cstdio>
#include <string_view>

namespace
{

using platform::Bundle::localizedString;

// The conversions of a format one after another, from each '%' to its letter.
std::string Conversions(std::string_view format)
{
    std::string found;
    for (auto start = format.find('%'); start != std::string_view::npos; start = format.find('%'))
    {
        auto const end = format.find_first_of("diouxXeEfFgGaAcspn%", start + 1);
        auto const length = end == std::string_view::npos ? format.size() - start : end + 1 - start;
        found += format.substr(start, length);
        format.remove_prefix(start + length);
    }
    return found;
}

std::string TrustedFormat(char const* english)
{
    std::string const translated = localizedString(english);
    return HaveSameConversions(english, translated) ? translated : english;
}

} // namespace

void SetLocalizedItem(Menu& menu, int item, char const* english)
{
    menu.SetItem(item, localizedString(english).c_str());
}

std::string LocalizedFormat(char const* english, int first, int second)
{
    char text[256];
    std::snprintf(text, sizeof text, TrustedFormat(english).c_str(), first, second);
    return text;
}

std::string LocalizedFormat(char const* english, int first, int second, int third)
{
    char text[256];
    std::snprintf(text, sizeof text, TrustedFormat(english).c_str(), first, second, third);
    return text;
}

bool HaveSameConversions(std::string const& a, std::string const& b)
{
    return Conversions(a) == Conversions(b);
}
