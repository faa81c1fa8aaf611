// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/window/FakeApplication.h"

#include "platform/window/Application.h"

namespace
{

int terminations = 0;

} // namespace

int Terminations()
{
    return terminations;
}

namespace platform
{

void Terminate()
{
    ++terminations;
}

} // namespace platform
