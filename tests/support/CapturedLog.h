// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Captures the system log while the object lives, line by line.
#pragma once

#include <string>
#include <vector>

class CapturedLog
{
public:
    CapturedLog();
    ~CapturedLog();
    CapturedLog(CapturedLog const&) = delete;
    CapturedLog& operator=(CapturedLog const&) = delete;

    // Ends the capture. The lines of the log without their "quarrow: ".
    std::vector<std::string> lines();

    // Ends the capture. All lines of standard error as they stand.
    std::vector<std::string> allLines();

private:
    bool m_captures = true;
};
