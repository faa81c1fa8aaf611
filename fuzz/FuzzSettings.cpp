// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Any bytes as the settings file: keys are read in every way, then some are changed and saved, and what was
// saved is read back.
#include "platform/settings/Preferences.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{

namespace fs = std::filesystem;

constexpr char const* kKeys[] = {
    "Fullscreen",
    "_ShowFPS",
    "_FPSFontSize",
    "_FPSFontName",
    "FogStart",
    "FogEndLow",
    "FogEndHigh",
    "LODDistMedium",
    "LODDistFar",
    "_AsteroidsDensityEdge",
    "_AsteroidsSmoothness",
    "_AsteroidsMaxR",
    "_PlayerMaxSpeed",
    "_CockpitTimerFontName",
    "KeyDefaultPause",
    "MouseSensitivity",
    "MusicVolume",
    "MusicLastTrackIndex",
    "RaceTimes",
    "NoSuchKey",
};

void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

// A folder of its own in memory, for the length of the process.
fs::path const& Folder()
{
    static fs::path const folder = []
    {
        char name[] = "/dev/shm/quarrow-fuzz-XXXXXX";
        char const* const made = mkdtemp(name);
        Require(made != nullptr);
        return fs::path(made);
    }();
    return folder;
}

void ReadAll(platform::Preferences const& preferences)
{
    for (char const* const key : kKeys)
    {
        preferences.integerForKey(key);
        preferences.floatForKey(key);
        preferences.stringForKey(key);
        preferences.integerArrayForKey(key);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fs::path const file = Folder() / "settings.ini";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
    platform::Preferences::Defaults const defaults = {
        {"FogStart", 10.0F}, {"Fullscreen", 1}, {"KeyDefaultPause", "w"}, {"RaceTimes", std::vector<int>{}}};
    std::string text;
    {
        platform::Preferences preferences(file);
        preferences.registerDefaults(defaults);
        ReadAll(preferences);
        text = preferences.stringForKey("_FPSFontName");
        preferences.setValue("Fullscreen", 7);
        preferences.setValue("FogStart", 0.1F);
        preferences.setValue("_CockpitTimerFontName", text);
        Require(preferences.synchronize());
    }
    platform::Preferences const again(file);
    Require(again.integerForKey("Fullscreen") == 7);
    Require(again.floatForKey("FogStart") == 0.1F);
    Require(again.stringForKey("_CockpitTimerFontName") == text);
    ReadAll(again);

    std::error_code error;
    for (fs::directory_entry const& entry : fs::directory_iterator(Folder(), error))
    {
        fs::remove(entry.path(), error); // what was set aside as broken
    }
    return 0;
}
