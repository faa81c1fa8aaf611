// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Diagnostics shared by everything that draws. All read and format an error and discard the text,
// deliberately.
#pragma once

// A silent sink for messages.
void ReportError(char const* message);

// OpenGL's pending error, 0 when there is none. Clears it.
unsigned glReportError();
unsigned glDebugStr();
