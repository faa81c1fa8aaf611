// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/TestSettings.h"

using platform::Preferences;

namespace test
{

ScopedSetting::ScopedSetting(std::string key, int value) : m_key(std::move(key))
{
    GameSettings::Initialize();
    m_before = Preferences::standard().integerForKey(m_key);
    Preferences::standard().setValue(m_key, value);
}

ScopedSetting::ScopedSetting(std::string key, float value) : m_key(std::move(key))
{
    GameSettings::Initialize();
    m_before = Preferences::standard().floatForKey(m_key);
    Preferences::standard().setValue(m_key, value);
}

ScopedSetting::ScopedSetting(std::string key, char const* value) : m_key(std::move(key))
{
    GameSettings::Initialize();
    m_before = Preferences::standard().stringForKey(m_key);
    Preferences::standard().setValue(m_key, std::string(value));
}

ScopedSetting::~ScopedSetting()
{
    Preferences::standard().setValue(m_key, m_before);
}

} // namespace test
