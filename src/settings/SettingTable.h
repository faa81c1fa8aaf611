// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Every setting: its key, type and default, and a range where numbers beyond it would hang or crash the game.
// docs/settings.md shows the same table. Distances are in world units.
#pragma once

#include <limits>
#include <tuple>

template <typename Number>
struct NumberSetting
{
    char const* key = nullptr;
    Number standard = 0;
    Number least = std::numeric_limits<Number>::lowest();
    Number most = std::numeric_limits<Number>::max();
};
using IntSetting = NumberSetting<int>;
using FloatSetting = NumberSetting<float>;

struct TextSetting
{
    char const* key;
    char const* standard;
};

struct ListSetting // of whole numbers, none by default
{
    char const* key;
};

namespace setting
{

inline constexpr int kGreatestFont = 1000;    // pixels: a text of that size takes 10 MB in every frame
inline constexpr float kFarthestView = 80.0F; // the asteroids in view grow with its cube
inline constexpr float kHuge = 1000000.0F;    // products of two such numbers and a time stay finite

// Display. 1 is full screen; 1 shows the frames per second.
inline constexpr IntSetting kFullscreen{"Fullscreen", 1};
inline constexpr IntSetting kShowFps{"_ShowFPS", 0};
inline constexpr IntSetting kFpsFontSize{"_FPSFontSize", 12, 1, kGreatestFont};
inline constexpr TextSetting kFpsFontName{"_FPSFontName", "Helvetica"};

// Where fog begins; where it hides everything, deep in the field and outside it; from where on asteroids are
// drawn in the medium and in the coarsest level of detail.
inline constexpr FloatSetting kFogStart{"FogStart", 10.0F};
inline constexpr FloatSetting kFogEndLow{"FogEndLow", 20.0F, 0.0F, kFarthestView};
inline constexpr FloatSetting kFogEndHigh{"FogEndHigh", 50.0F, 0.0F, kFarthestView};
inline constexpr FloatSetting kLodDistMedium{"LODDistMedium", 30.0F};
inline constexpr FloatSetting kLodDistFar{"LODDistFar", 55.0F};

// Shares of filled cells; slices and stacks of the finest spheres; radii, which widen the search for impacts.
inline constexpr FloatSetting kAsteroidsDensityEdge{"_AsteroidsDensityEdge", 0.01F};
inline constexpr FloatSetting kAsteroidsDensityCenter{"_AsteroidsDensityCenter", 0.5F};
inline constexpr IntSetting kAsteroidsSmoothness{.key = "_AsteroidsSmoothness", .standard = 7, .most = 12};
inline constexpr FloatSetting kAsteroidsMinR{"_AsteroidsMinR", 0.1F, 0.0F, 1.0F};
inline constexpr FloatSetting kAsteroidsMaxR{"_AsteroidsMaxR", 0.6F, 0.0F, 1.0F};

// The ship, in units and seconds. Each cell along its path is searched; its size has no effect.
inline constexpr FloatSetting kPlayerRotationsPerSecond{"_PlayerRotationsPerSecond", 0.1F, -kHuge, kHuge};
inline constexpr FloatSetting kPlayerMaxSpeed{"_PlayerMaxSpeed", 4.0F, -1000.0F, 1000.0F};
inline constexpr FloatSetting kPlayerMinSpeed{"_PlayerMinSpeed", 0.0F, -1000.0F, 1000.0F};
inline constexpr FloatSetting kPlayerMaxAccel{"_PlayerMaxAccel", 0.3F, -kHuge, kHuge};
inline constexpr FloatSetting kPlayerSize{"_PlayerSize", 0.2F};

// The cockpit's texts; the place of its arrow has no effect.
inline constexpr IntSetting kCockpitArrowX{"_CockpitArrowX", 7};
inline constexpr IntSetting kCockpitArrowY{"_CockpitArrowY", 7};
inline constexpr IntSetting kCockpitTimerFontSize{"_CockpitTimerFontSize", 20, 1, kGreatestFont};
inline constexpr TextSetting kCockpitTimerFontName{"_CockpitTimerFontName", "Courier"};
inline constexpr IntSetting kCockpitWayptFontSize{"_CockpitWayptFontSize", 12, 1, kGreatestFont};

// The turn request at the view's edge, the greatest request that is ignored, and the keys.
inline constexpr FloatSetting kMouseSensitivity{"MouseSensitivity", 1.0F, -kHuge, kHuge};
inline constexpr FloatSetting kMouseDeadCenterPct{"MouseDeadCenterPct", 0.05F};
inline constexpr TextSetting kKeyThrustUp{"KeyDefaultThrustUp", "w"};
inline constexpr TextSetting kKeyThrustDown{"KeyDefaultThrustDown", "s"};
inline constexpr TextSetting kKeyPause{"KeyDefaultPause", "\x1B"}; // Escape
inline constexpr IntSetting kMouseInvert{"MouseInvert", 0};

// The last track is the one that was played last; times are in seconds, 0 for an empty place.
inline constexpr FloatSetting kSoundVolume{"SoundVolume", 1.0F};
inline constexpr FloatSetting kMusicVolume{"MusicVolume", 0.5F};
inline constexpr IntSetting kMusicLastTrackIndex{"MusicLastTrackIndex", -1};
inline constexpr ListSetting kRaceTimes{"RaceTimes"};

inline constexpr std::tuple kTable(kFullscreen, kShowFps, kFpsFontSize, kFpsFontName, kFogStart, kFogEndLow,
                                   kFogEndHigh, kLodDistMedium, kLodDistFar, kAsteroidsDensityEdge,
                                   kAsteroidsDensityCenter, kAsteroidsSmoothness, kAsteroidsMinR,
                                   kAsteroidsMaxR, kPlayerRotationsPerSecond, kPlayerMaxSpeed,
                                   kPlayerMinSpeed, kPlayerMaxAccel, kPlayerSize, kCockpitArrowX,
                                   kCockpitArrowY, kCockpitTimerFontSize, kCockpitTimerFontName,
                                   kCockpitWayptFontSize, kMouseSensitivity, kMouseDeadCenterPct,
                                   kKeyThrustUp, kKeyThrustDown, kKeyPause, kMouseInvert, kSoundVolume,
                                   kMusicVolume, kMusicLastTrackIndex, kRaceTimes);

} // namespace setting
