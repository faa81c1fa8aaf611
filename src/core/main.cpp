// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Hands control to the application, which loads the main interface file and with it the host view.
#include "core/kGLView.h"
#include "platform/window/Application.h"

int main()
{
    return platform::ApplicationMain({{"kGLView", [] { return std::make_unique<kGLView>(); }}});
}
