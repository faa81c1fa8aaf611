// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Typed access to what is kept between runs. A setting is named by its constant in SettingTable.h, so that a
// typing error or a wrong type does not compile.
//
// Nothing is cached: a get reads the preferences and a set writes them, so the next reader sees a change at
// once. A stored number beyond the range of its setting reads as the nearest end of the range, and one that
// is no number (NaN) as the default; the first time that a setting needs this, it is logged.
#pragma once

#include "settings/SettingTable.h"

#include <cstddef>

class GameSettings
{
public:
    // Registers the table of defaults, and logs each stored number that is beyond its range. Once, before the
    // first read.
    static void Initialize();

    static int GetIntParam(IntSetting const& setting);
    static void SetIntParam(IntSetting const& setting, int value);

    static float GetFloatParam(FloatSetting const& setting);
    static float GetFloatParam(IntSetting const& setting); // the fraction too, should one be stored
    static void SetFloatParam(FloatSetting const& setting, float value);

    // Copies the stored string (UTF-8) into the buffer, cut to its size at a character's border, always
    // terminated.
    static void GetStringParam(TextSetting const& setting, char* buffer, std::size_t size);
    template <std::size_t Size>
    static void GetStringParam(TextSetting const& setting, char (&buffer)[Size])
    {
        GetStringParam(setting, buffer, Size);
    }
    static void SetStringParam(TextSetting const& setting, char const* value);

    // The first UTF-16 unit of the stored string; 0 for an empty one.
    static unsigned short GetUniCharParam(TextSetting const& setting);
    static void SetUniCharParam(TextSetting const& setting, unsigned short ch);

    // values: count ints. Elements that the stored array lacks read as 0; those past count are ignored.
    static void GetIntArrayParam(ListSetting const& setting, int* values, int count);
    static void SetIntArrayParam(ListSetting const& setting, int const* values, int count);
};
