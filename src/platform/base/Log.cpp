// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One write for the whole line, so that lines of several processes never mix.
#include "platform/base/Log.h"

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <string>

namespace platform
{

namespace
{

bool IsLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

// The text that the format makes; empty when it cannot be made.
std::string Formatted(char const* format, std::va_list arguments)
{
    std::va_list again;
    va_copy(again, arguments);
    int const length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0)
    {
        return {};
    }
    std::string text(static_cast<std::size_t>(length) + 1, '\0'); // the terminator is written too
    std::vsnprintf(text.data(), text.size(), format, arguments);
    text.pop_back();
    return text;
}

} // namespace

void Log(std::string_view text)
{
    while (!text.empty() && IsLineEnd(text.back()))
    {
        text.remove_suffix(1);
    }
    std::string line = "quarrow: ";
    line.append(text);
    std::replace_if(line.begin(), line.end(), IsLineEnd, ' ');
    line.push_back('\n');
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void LogFormat(char const* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::string const text = Formatted(format, arguments);
    va_end(arguments);
    Log(text);
}

} // namespace platform
