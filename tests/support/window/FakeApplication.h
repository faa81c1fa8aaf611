// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Stands in for the application: a program that uses it has no other.
#pragma once

// How often the application was asked to end.
int Terminations();
