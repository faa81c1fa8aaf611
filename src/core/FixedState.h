// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The state of OpenGL that never changes while the game runs.
#pragma once

// Of the current context.
void SetFixedState();

void LogBitDepths();
