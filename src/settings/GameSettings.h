// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Everything that is kept between runs: preferences, tuning values (keys that begin with "_"), key bindings,
// the place in the playlist and the best race times. The table of defaults in GameSettings.cpp lists every
// key.
//
// Nothing is cached: a get reads the preferences and a set writes them, so the next reader sees a change at
// once. A number beyond the limits of its key reads as the nearest that the game can play with
// (SettingLimits). A key that is neither stored nor in the table reads as 0, 0.0, the empty string or zeros.
#pragma once

#include <cstddef>

class GameSettings
{
public:
    // Registers the table of defaults. Once, before the first read.
    static void Initialize();

    static int GetIntParam(char const* key);
    static void SetIntParam(char const* key, int value);

    static float GetFloatParam(char const* key);
    static void SetFloatParam(char const* key, float value);

    // Copies the stored string (UTF-8) into the buffer, cut to its size at a character's border, always
    // terminated.
    static void GetStringParam(char const* key, char* buffer, std::size_t size);
    template <std::size_t Size>
    static void GetStringParam(char const* key, char (&buffer)[Size])
    {
        GetStringParam(key, buffer, Size);
    }
    static void SetStringParam(char const* key, char const* value);

    // The first UTF-16 unit of the stored string; 0 for an empty one.
    static unsigned short GetUniCharParam(char const* key);
    static void SetUniCharParam(char const* key, unsigned short ch);

    // values: count ints. Elements that the stored array lacks read as 0; those past count are ignored.
    static void GetIntArrayParam(char const* key, int* values, int count);
    static void SetIntArrayParam(char const* key, int const* values, int count);
};
