// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Log.h"

#include <algorithm>
#include <cstdarg>
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

} // namespace

void Log(std::string_view text)
{
    while (!text.empty() && IsLineEnd(text.back()))
    {
        text.remove_suffix(1);
    }
    std::string line = "quarrow: " + std::string(text);
    std::replace_if(line.begin(), line.end(), IsLineEnd, ' ');
    line.push_back('\n');
    // One write for the whole line, so that lines of several processes do not mix.
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void LogFormat(char const* format, ...)
{
    char text[8192] = ""; // a path has at most 4096 bytes
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    Log(text);
}

} // namespace platform
