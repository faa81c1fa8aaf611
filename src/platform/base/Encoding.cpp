// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Encoding.h"

#include <glib.h>

#include <system_error>
#include <vector>

namespace platform
{

std::u16string Utf16FromUtf8(std::string const& text)
{
    g_autofree char* valid = g_utf8_make_valid(text.c_str(), -1);
    glong count = 0;
    g_autofree gunichar2* units = g_utf8_to_utf16(valid, -1, nullptr, &count, nullptr);
    return {units, units + count};
}

std::string Utf8FromUtf16(std::u16string const& units)
{
    std::vector<gunichar2> const copy(units.begin(), units.end());
    g_autofree char* text =
        g_utf16_to_utf8(copy.data(), static_cast<glong>(copy.size()), nullptr, nullptr, nullptr);
    return text != nullptr ? text : "\xEF\xBF\xBD";
}

std::optional<std::string> FileURLWithPath(std::filesystem::path const& path)
{
    std::error_code error;
    g_autofree char* url =
        g_filename_to_uri(std::filesystem::absolute(path, error).c_str(), nullptr, nullptr);
    return url != nullptr ? std::optional<std::string>(url) : std::nullopt;
}

std::optional<std::filesystem::path> PathOfFileURL(std::string const& url)
{
    g_autofree char* path = g_filename_from_uri(url.c_str(), nullptr, nullptr);
    return path != nullptr ? std::optional<std::filesystem::path>(path) : std::nullopt;
}

} // namespace platform
