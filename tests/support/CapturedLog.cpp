// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string_view>

CapturedLog::CapturedLog()
{
    testing::internal::CaptureStderr();
}

CapturedLog::~CapturedLog()
{
    allLines();
}

std::vector<std::string> CapturedLog::allLines()
{
    std::vector<std::string> found;
    if (m_captures)
    {
        m_captures = false;
        std::istringstream captured(testing::internal::GetCapturedStderr());
        for (std::string line; std::getline(captured, line);)
        {
            found.push_back(line);
        }
    }
    return found;
}

std::vector<std::string> CapturedLog::lines()
{
    static constexpr std::string_view kPrefix = "quarrow: ";
    std::vector<std::string> found = allLines();
    std::erase_if(found, [](std::string const& line) { return !line.starts_with(kPrefix); });
    for (std::string& line : found)
    {
        line.erase(0, kPrefix.size());
    }
    return found;
}
