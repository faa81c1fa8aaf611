// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The shared application while the object lives. A program that links it has no other application.
#pragma once

#include "platform/window/Application.h"

class FakeApplication final : public platform::Application
{
public:
    FakeApplication();
    ~FakeApplication();
    FakeApplication(FakeApplication const&) = delete;
    FakeApplication& operator=(FakeApplication const&) = delete;

    int run() override { return 0; }
    void terminate() override { ++m_terminations; }
    platform::Window* keyWindow() override;

    int terminations() const { return m_terminations; }

private:
    int m_terminations = 0;
};
