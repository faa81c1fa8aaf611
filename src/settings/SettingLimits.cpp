// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "settings/SettingLimits.h"

#include "platform/base/Log.h"

#include <algorithm>
#include <limits>
#include <set>
#include <string>
#include <string_view>

namespace
{

struct Limits
{
    std::string_view key;
    float least;
    float most;
};

constexpr float kGreatestDistance = 1000000.0F; // world units: any number that OpenGL's fog can still tell
constexpr float kFarthestView = 80.0F;          // world units: the asteroids in view grow with its cube
constexpr float kGreatestFont = 200.0F;         // pixels: rasterised anew in most frames

constexpr Limits kLimits[] = {
    {"_FPSFontSize", 1.0F, kGreatestFont},
    {"_CockpitTimerFontSize", 1.0F, kGreatestFont},
    {"_CockpitWayptFontSize", 1.0F, kGreatestFont},

    {"FogStart", 0.0F, kGreatestDistance},
    {"FogEndLow", 0.0F, kFarthestView},
    {"FogEndHigh", 0.0F, kFarthestView},
    {"LODDistMedium", 0.0F, kGreatestDistance},
    {"LODDistFar", 0.0F, kGreatestDistance},

    {"_AsteroidsDensityEdge", 0.0F, 1.0F},
    {"_AsteroidsDensityCenter", 0.0F, 1.0F},
    {"_AsteroidsSmoothness", 3.0F, 12.0F},
    {"_AsteroidsMinR", 0.0F, 1.0F},
    {"_AsteroidsMaxR", 0.0F, 1.0F},

    {"_PlayerRotationsPerSecond", 0.0F, 10.0F},
    {"_PlayerMaxSpeed", 0.0F, 1000.0F},
    {"_PlayerMinSpeed", 0.0F, 1000.0F},
    {"_PlayerMaxAccel", 0.0F, 1000.0F},
    {"_PlayerSize", 0.0F, 1000.0F},

    {"MouseSensitivity", 0.0F, 100.0F},
    {"MouseDeadCenterPct", 0.0F, 1.0F},
    {"MusicVolume", 0.0F, 1.0F},
};

Limits const* Find(std::string_view key)
{
    auto const* const found =
        std::find_if(std::begin(kLimits), std::end(kLimits), [&](Limits const& l) { return l.key == key; });
    return found != std::end(kLimits) ? found : nullptr;
}

void TellOnce(char const* key, double value, double held)
{
    static std::set<std::string> told;
    if (told.insert(key).second)
    {
        platform::LogFormat("The setting %s is %g, which the game cannot play with; it takes %g", key, value,
                            held);
    }
}

} // namespace

float SettingLimits::Hold(char const* key, float value)
{
    Limits const* const limits = Find(key);
    if (limits == nullptr || (value >= limits->least && value <= limits->most))
    {
        return value;
    }
    float const held = value < limits->least ? limits->least : limits->most;
    TellOnce(key, value, held);
    return held;
}

int SettingLimits::Hold(char const* key, int value)
{
    Limits const* const limits = Find(key);
    if (limits == nullptr)
    {
        return value;
    }
    int const held = std::clamp(value, static_cast<int>(limits->least), static_cast<int>(limits->most));
    if (held != value)
    {
        TellOnce(key, value, held);
    }
    return held;
}
