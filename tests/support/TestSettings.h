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

// Stores a value of any kind, and puts back what it was when the object goes.
class ScopedSetting
{
public:
    template <typename Number>
    ScopedSetting(NumberSetting<Number> const& setting, platform::Preferences::Value const& value)
        : ScopedSetting(setting.key, value)
    {
    }
    ~ScopedSetting();
    ScopedSetting(ScopedSetting const&) = delete;
    ScopedSetting& operator=(ScopedSetting const&) = delete;

private:
    ScopedSetting(char const* key, platform::Preferences::Value const& value);

    std::string m_key;
    platform::Preferences::Value m_before;
};

} // namespace test
