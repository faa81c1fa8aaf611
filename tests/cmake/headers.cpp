// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
// The source behind which the test framework's headers are precompiled: it has none of its own to compile.
