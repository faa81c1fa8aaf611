// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Percent encoding by bytes, after RFC 3986 and RFC 8089.
#include "platform/base/FileURL.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace platform
{
namespace
{

constexpr std::string_view kScheme = "file://";
constexpr std::string_view kLocalHost = "localhost";

bool StandsForItself(char c)
{
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    return kPlain.find(c) != std::string_view::npos;
}

std::string Encoded(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (char const c : text)
    {
        if (StandsForItself(c))
        {
            encoded += c;
            continue;
        }
        auto const byte = static_cast<unsigned char>(c);
        encoded += {'%', kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
    return encoded;
}

std::optional<std::string> Decoded(std::string_view text)
{
    std::string decoded;
    while (!text.empty())
    {
        if (text.front() != '%')
        {
            decoded += text.front();
            text.remove_prefix(1);
            continue;
        }
        unsigned byte = 0;
        std::string_view const digits = text.substr(1, 2);
        auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
        if (digits.size() != 2 || error != std::errc{} || end != digits.data() + 2 || byte == 0)
        {
            return std::nullopt;
        }
        decoded += static_cast<char>(byte);
        text.remove_prefix(3);
    }
    return decoded;
}

} // namespace

std::optional<std::string> FileURLWithPath(std::filesystem::path const& path)
{
    std::error_code error;
    auto const absolute = path.empty() ? path : std::filesystem::absolute(path, error);
    if (error || absolute.empty())
    {
        return std::nullopt;
    }
    return std::string(kScheme) + Encoded(absolute.native());
}

std::optional<std::filesystem::path> PathOfFileURL(std::string const& url)
{
    std::string_view rest = url;
    if (!rest.starts_with(kScheme))
    {
        return std::nullopt;
    }
    rest.remove_prefix(kScheme.size());
    if (rest.starts_with(kLocalHost))
    {
        rest.remove_prefix(kLocalHost.size());
    }
    auto const decoded = rest.starts_with('/') ? Decoded(rest) : std::nullopt;
    return decoded ? std::optional<std::filesystem::path>(*decoded) : std::nullopt;
}

} // namespace platform
