// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The descriptor itself is turned away, since the libraries do not ask anybody before they write to it.
#include "platform/sound/QuietStandardError.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace platform
{

QuietStandardError::QuietStandardError() : m_saved(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3))
{
    int const nowhere = m_saved >= 0 ? open("/dev/null", O_WRONLY | O_CLOEXEC) : -1;
    if (nowhere < 0)
    {
        return;
    }
    std::fflush(stderr);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

QuietStandardError::~QuietStandardError()
{
    if (m_saved < 0)
    {
        return;
    }
    std::fflush(stderr);
    dup2(m_saved, STDERR_FILENO);
    close(m_saved);
}

} // namespace platform
