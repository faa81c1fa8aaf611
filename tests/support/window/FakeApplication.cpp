// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/window/FakeApplication.h"

#include "platform/window/WindowList.h"

namespace
{

FakeApplication* theFake = nullptr;

} // namespace

FakeApplication::FakeApplication()
{
    theFake = this;
}

FakeApplication::~FakeApplication()
{
    theFake = nullptr;
}

platform::Window* FakeApplication::keyWindow()
{
    return platform::WindowList::key();
}

namespace platform
{

Application* Application::shared()
{
    return theFake;
}

} // namespace platform
