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
    lines();
}

std::vector<std::string> CapturedLog::lines()
{
    std::vector<std::string> found;
    if (!m_captures)
    {
        return found;
    }
    m_captures = false;
    std::istringstream captured(testing::internal::GetCapturedStderr());
    constexpr std::string_view kPrefix = "quarrow: ";
    for (std::string line; std::getline(captured, line);)
    {
        if (line.starts_with(kPrefix))
        {
            found.push_back(line.substr(kPrefix.size()));
        }
    }
    return found;
}
