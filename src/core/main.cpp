// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Hands control to the application, which shows the host view.
#include "core/kGLView.h"
#include "platform/window/Application.h"

int main()
{
    return platform::ApplicationMain(std::make_unique<kGLView>());
}
