// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Nothing reaches standard error while one of these lives. Sound drivers deep below our libraries print
// what they think of a machine; the game says it in one line of its own instead.
#pragma once

namespace platform
{

class QuietStandardError
{
public:
    QuietStandardError();
    ~QuietStandardError();
    QuietStandardError(QuietStandardError const&) = delete;
    QuietStandardError& operator=(QuietStandardError const&) = delete;

private:
    int m_saved; // the real standard error, or -1 when it could not be put aside
};

} // namespace platform
