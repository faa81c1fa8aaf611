// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "settings/GameSettings.h"

#include "platform/base/Encoding.h"
#include "platform/base/Log.h"
#include "platform/settings/Preferences.h"
#include "settings/RaceTimes.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace
{

using platform::Preferences;

Preferences& Store()
{
    return Preferences::standard();
}

template <typename Kind>
Preferences::Value DefaultOf(Kind const& setting)
{
    return setting.standard;
}

Preferences::Value DefaultOf(ListSetting const&)
{
    return std::vector<int>{};
}

template <typename Number>
Number Held(NumberSetting<Number> const& setting, Number value)
{
    return std::isnan(static_cast<double>(value)) ? setting.standard
                                                  : std::clamp(value, setting.least, setting.most);
}

template <typename Number>
void LogIfHeld(NumberSetting<Number> const& setting, Number value)
{
    Number const held = Held(setting, value);
    if (held != value)
    {
        platform::LogFormat("The setting %s is %g, which the game cannot play with; it takes %g", setting.key,
                            static_cast<double>(value), static_cast<double>(held));
    }
}

void Check(IntSetting const& setting)
{
    LogIfHeld(setting, Store().integerForKey(setting.key));
}

void Check(FloatSetting const& setting)
{
    LogIfHeld(setting, Store().floatForKey(setting.key));
}

// Texts and lists have no range.
template <typename Kind>
void Check(Kind const&)
{
}

} // namespace

void GameSettings::Initialize()
{
    Preferences::Defaults defaults;
    std::apply([&](auto const&... settings) { ((defaults[settings.key] = DefaultOf(settings)), ...); },
               setting::kTable);
    Store().registerDefaults(defaults);
    Store().registerMerge(setting::kRaceTimes.key, MergedRaceTimes);
    std::apply([](auto const&... settings) { (Check(settings), ...); }, setting::kTable);
}

int GameSettings::GetIntParam(IntSetting const& setting)
{
    return Held(setting, Store().integerForKey(setting.key));
}

void GameSettings::SetIntParam(IntSetting const& setting, int value)
{
    Store().setValue(setting.key, value);
}

float GameSettings::GetFloatParam(FloatSetting const& setting)
{
    return Held(setting, Store().floatForKey(setting.key));
}

float GameSettings::GetFloatParam(IntSetting const& setting)
{
    return Store().floatForKey(setting.key);
}

void GameSettings::SetFloatParam(FloatSetting const& setting, float value)
{
    Store().setValue(setting.key, value);
}

void GameSettings::GetStringParam(TextSetting const& setting, char* buffer, std::size_t size)
{
    std::string const text = Store().stringForKey(setting.key);
    std::size_t length = std::min(text.size(), size - 1);
    while (length > 0 && (text[length] & 0xC0) == 0x80) // inside a character
    {
        --length;
    }
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

void GameSettings::SetStringParam(TextSetting const& setting, char const* value)
{
    Store().setValue(setting.key, std::string(value));
}

unsigned short GameSettings::GetUniCharParam(TextSetting const& setting)
{
    std::u16string const units = platform::Utf16FromUtf8(Store().stringForKey(setting.key));
    return units.empty() ? 0 : units.front();
}

void GameSettings::SetUniCharParam(TextSetting const& setting, unsigned short ch)
{
    Store().setValue(setting.key, platform::Utf8FromUtf16(std::u16string(1, static_cast<char16_t>(ch))));
}

void GameSettings::GetIntArrayParam(ListSetting const& setting, int* values, int count)
{
    std::vector<int> const stored = Store().integerArrayForKey(setting.key);
    for (int i = 0; i < count; ++i)
    {
        auto const index = static_cast<std::size_t>(i);
        values[i] = index < stored.size() ? stored[index] : 0;
    }
}

void GameSettings::SetIntArrayParam(ListSetting const& setting, int const* values, int count)
{
    Store().setValue(setting.key, std::vector<int>(values, values + count));
}
