// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Every setting: its key, the kind of its value, its default, and the range of each number that would hang or
// crash the game or take its memory beyond it. docs/settings.md shows the same table to the players.
//
// Distances are in world units; keys that begin with "_" tune the world and have no menu of their own.
#pragma once

#include <variant>

// least and most are the range's ends; where both are 0, any value will do.
template <typename Number>
struct NumberSetting
{
    char const* key;
    Number standard;
    Number least = 0;
    Number most = 0;
};
using IntSetting = NumberSetting<int>;
using FloatSetting = NumberSetting<float>;

struct TextSetting
{
    char const* key;
    char const* standard;
};

// Whole numbers; none by default.
struct ListSetting
{
    char const* key;
};

namespace setting
{

// Display. 1: full screen, 1: the frame rate is shown, and how.
inline constexpr IntSetting kFullscreen{"Fullscreen", 1};
inline constexpr IntSetting kShowFps{"_ShowFPS", 0};
inline constexpr IntSetting kFpsFontSize{"_FPSFontSize", 12, 1, 200};
inline constexpr TextSetting kFpsFontName{"_FPSFontName", "Helvetica"};

// Where the haze begins; where it hides everything, in the field's depths and outside the field; from where
// asteroids are drawn with fewer corners, and with the fewest.
inline constexpr FloatSetting kFogStart{"FogStart", 10.0F, 0.0F, 1000000.0F};
inline constexpr FloatSetting kFogEndLow{"FogEndLow", 20.0F, 0.0F, 80.0F};
inline constexpr FloatSetting kFogEndHigh{"FogEndHigh", 50.0F, 0.0F, 80.0F};
inline constexpr FloatSetting kLodDistMedium{"LODDistMedium", 30.0F, 0.0F, 1000000.0F};
inline constexpr FloatSetting kLodDistFar{"LODDistFar", 55.0F, 0.0F, 1000000.0F};

// The field: share of its cells that hold an asteroid, slices and stacks of the nearest spheres, radii.
inline constexpr FloatSetting kAsteroidsDensityEdge{"_AsteroidsDensityEdge", 0.01F, 0.0F, 1.0F};
inline constexpr FloatSetting kAsteroidsDensityCenter{"_AsteroidsDensityCenter", 0.5F, 0.0F, 1.0F};
inline constexpr IntSetting kAsteroidsSmoothness{"_AsteroidsSmoothness", 7, 3, 12};
inline constexpr FloatSetting kAsteroidsMinR{"_AsteroidsMinR", 0.1F, 0.0F, 1.0F};
inline constexpr FloatSetting kAsteroidsMaxR{"_AsteroidsMaxR", 0.6F, 0.0F, 1.0F};

// The ship: turns a second, units a second, units a second squared, units.
inline constexpr FloatSetting kPlayerRotationsPerSecond{"_PlayerRotationsPerSecond", 0.1F, 0.0F, 10.0F};
inline constexpr FloatSetting kPlayerMaxSpeed{"_PlayerMaxSpeed", 4.0F, 0.0F, 1000.0F};
inline constexpr FloatSetting kPlayerMinSpeed{"_PlayerMinSpeed", 0.0F, 0.0F, 1000.0F};
inline constexpr FloatSetting kPlayerMaxAccel{"_PlayerMaxAccel", 0.3F, 0.0F, 1000.0F};
inline constexpr FloatSetting kPlayerSize{"_PlayerSize", 0.2F, 0.0F, 1000.0F};

// The cockpit; sizes in pixels. The arrow's place is read, and used by nothing.
inline constexpr IntSetting kCockpitArrowX{"_CockpitArrowX", 7};
inline constexpr IntSetting kCockpitArrowY{"_CockpitArrowY", 7};
inline constexpr IntSetting kCockpitTimerFontSize{"_CockpitTimerFontSize", 20, 1, 200};
inline constexpr TextSetting kCockpitTimerFontName{"_CockpitTimerFontName", "Courier"};
inline constexpr IntSetting kCockpitWayptFontSize{"_CockpitWayptFontSize", 12, 1, 200};

// Controls: turn request at the view's edge, greatest request that is ignored, keys, 1: up and down swapped.
inline constexpr FloatSetting kMouseSensitivity{"MouseSensitivity", 1.0F, 0.0F, 100.0F};
inline constexpr FloatSetting kMouseDeadCenterPct{"MouseDeadCenterPct", 0.05F, 0.0F, 1.0F};
inline constexpr TextSetting kKeyThrustUp{"KeyDefaultThrustUp", "w"};
inline constexpr TextSetting kKeyThrustDown{"KeyDefaultThrustDown", "s"};
inline constexpr TextSetting kKeyPause{"KeyDefaultPause", "\x1B"}; // Escape
inline constexpr IntSetting kMouseInvert{"MouseInvert", 0};

// Volumes, the track that was played last, and the five best times in seconds, 0 for an empty place.
inline constexpr FloatSetting kSoundVolume{"SoundVolume", 1.0F};
inline constexpr FloatSetting kMusicVolume{"MusicVolume", 0.5F, 0.0F, 1.0F};
inline constexpr IntSetting kMusicLastTrackIndex{"MusicLastTrackIndex", -1};
inline constexpr ListSetting kRaceTimes{"RaceTimes"};

inline constexpr std::variant<IntSetting, FloatSetting, TextSetting, ListSetting> kTable[] = {
    kFullscreen,
    kShowFps,
    kFpsFontSize,
    kFpsFontName,
    kFogStart,
    kFogEndLow,
    kFogEndHigh,
    kLodDistMedium,
    kLodDistFar,
    kAsteroidsDensityEdge,
    kAsteroidsDensityCenter,
    kAsteroidsSmoothness,
    kAsteroidsMinR,
    kAsteroidsMaxR,
    kPlayerRotationsPerSecond,
    kPlayerMaxSpeed,
    kPlayerMinSpeed,
    kPlayerMaxAccel,
    kPlayerSize,
    kCockpitArrowX,
    kCockpitArrowY,
    kCockpitTimerFontSize,
    kCockpitTimerFontName,
    kCockpitWayptFontSize,
    kMouseSensitivity,
    kMouseDeadCenterPct,
    kKeyThrustUp,
    kKeyThrustDown,
    kKeyPause,
    kMouseInvert,
    kSoundVolume,
    kMusicVolume,
    kMusicLastTrackIndex,
    kRaceTimes};

} // namespace setting
