// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
// Empty: the target that precompiles the test framework's headers needs a source.
