// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "settings/GameSettings.h"

#include "platform/base/Encoding.h"
#include "platform/settings/Preferences.h"
#include "settings/RaceTimes.h"
#include "settings/SettingLimits.h"

#include <algorithm>
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

Preferences::Defaults const& DefaultsTable()
{
    static Preferences::Defaults const table = {
        // Display
        {"Fullscreen", 1},
        {"_ShowFPS", 0},
        {"_FPSFontSize", 12},
        {"_FPSFontName", "Helvetica"},

        // View distance and level of detail, in world units
        {"FogStart", 10.0F},
        {"FogEndLow", 20.0F},
        {"FogEndHigh", 50.0F},
        {"LODDistMedium", 30.0F},
        {"LODDistFar", 55.0F},

        // The field: fill probabilities, subdivisions of a sphere, radii in world units
        {"_AsteroidsDensityEdge", 0.01F},
        {"_AsteroidsDensityCenter", 0.5F},
        {"_AsteroidsSmoothness", 7},
        {"_AsteroidsMinR", 0.1F},
        {"_AsteroidsMaxR", 0.6F},

        // The ship: turns per second, units per second (squared), units
        {"_PlayerRotationsPerSecond", 0.1F},
        {"_PlayerMaxSpeed", 4.0F},
        {"_PlayerMinSpeed", 0.0F},
        {"_PlayerMaxAccel", 0.3F},
        {"_PlayerSize", 0.2F},

        // The cockpit
        {"_CockpitArrowX", 7},
        {"_CockpitArrowY", 7},
        {"_CockpitTimerFontSize", 20},
        {"_CockpitTimerFontName", "Courier"},
        {"_CockpitWayptFontSize", 12},

        // Controls
        {"MouseSensitivity", 1.0F},
        {"MouseDeadCenterPct", 0.05F},
        {"KeyDefaultThrustUp", "w"},
        {"KeyDefaultThrustDown", "s"},
        {"KeyDefaultPause", "\x1B"}, // Escape
        {"MouseInvert", 0},

        // Sound, music and the five best times
        {"SoundVolume", 1.0F},
        {"MusicVolume", 0.5F},
        {"MusicLastTrackIndex", -1},
        {"RaceTimes", std::vector<int>{}},
    };
    return table;
}

// The longest prefix of at most maxBytes that does not end inside a UTF-8 sequence.
std::size_t WholeCharacters(std::string const& text, std::size_t maxBytes)
{
    std::size_t length = std::min(text.size(), maxBytes);
    while (length > 0 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
    {
        --length;
    }
    return length;
}

} // namespace

void GameSettings::Initialize()
{
    Store().registerDefaults(DefaultsTable());
    Store().registerMerge("RaceTimes", MergedRaceTimes);
}

int GameSettings::GetIntParam(char const* key)
{
    return SettingLimits::Hold(key, Store().integerForKey(key));
}

void GameSettings::SetIntParam(char const* key, int value)
{
    Store().setValue(key, value);
}

float GameSettings::GetFloatParam(char const* key)
{
    return SettingLimits::Hold(key, Store().floatForKey(key));
}

void GameSettings::SetFloatParam(char const* key, float value)
{
    Store().setValue(key, value);
}

void GameSettings::GetStringParam(char const* key, char* buffer, std::size_t size)
{
    std::string const text = Store().stringForKey(key);
    std::size_t const length = WholeCharacters(text, size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

void GameSettings::SetStringParam(char const* key, char const* value)
{
    Store().setValue(key, std::string(value));
}

unsigned short GameSettings::GetUniCharParam(char const* key)
{
    std::u16string const units = platform::Utf16FromUtf8(Store().stringForKey(key));
    return units.empty() ? 0 : units.front();
}

void GameSettings::SetUniCharParam(char const* key, unsigned short ch)
{
    Store().setValue(key, platform::Utf8FromUtf16(std::u16string(1, static_cast<char16_t>(ch))));
}

void GameSettings::GetIntArrayParam(char const* key, int* values, int count)
{
    std::vector<int> const stored = Store().integerArrayForKey(key);
    for (int i = 0; i < count; ++i)
    {
        auto const index = static_cast<std::size_t>(i);
        values[i] = index < stored.size() ? stored[index] : 0;
    }
}

void GameSettings::SetIntArrayParam(char const* key, int const* values, int count)
{
    Store().setValue(key, std::vector<int>(values, values + count));
}
