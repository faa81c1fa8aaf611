// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Settings for the length of a test. The preferences lie in the home that with-display gives each program.
#pragma once

#include "platform/settings/Preferences.h"
#include "settings/GameSettings.h"

#include <string>
#include <utility>

namespace test
{

// Sets a key, and puts back what it was when the object goes.
class ScopedSetting
{
public:
    ScopedSetting(std::string key, int value);
    ScopedSetting(std::string key, float value);
    ScopedSetting(std::string key, char const* value);
    ~ScopedSetting();
    ScopedSetting(ScopedSetting const&) = delete;
    ScopedSetting& operator=(ScopedSetting const&) = delete;

private:
    std::string m_key;
    platform::Preferences::Value m_before;
};

} // namespace test
