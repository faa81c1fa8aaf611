// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/Globals.h"

#include "platform/base/OpenGL.h"

#include <cstdio>

void ReportError(char const* message)
{
    char text[256];
    std::snprintf(text, sizeof text, "%s\n", message);
}

unsigned glReportError()
{
    GLenum const error = glGetError();
    if (error != GL_NO_ERROR)
    {
        ReportError(reinterpret_cast<char const*>(gluErrorString(error)));
    }
    return error;
}

unsigned glDebugStr()
{
    return glReportError();
}
