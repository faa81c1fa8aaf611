// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Diagnostics shared by everything that draws. They print nothing: a player could do nothing about it, and an
// error in every frame would fill the log.
#pragma once

// Formats the message and discards the text.
void ReportError(char const* message);

// OpenGL's pending error, 0 when there is none. Clears it. Both do the same.
unsigned glReportError();
unsigned glDebugStr();
