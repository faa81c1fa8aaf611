// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/TestSettings.h"

using platform::Preferences;

namespace test
{

ScopedSetting::ScopedSetting(char const* key, Preferences::Value const& value) : m_key(key)
{
    GameSettings::Initialize();
    m_before = Preferences::standard().floatForKey(m_key);
    Preferences::standard().setValue(m_key, value);
}

ScopedSetting::~ScopedSetting()
{
    Preferences::standard().setValue(m_key, m_before);
}

} // namespace test
