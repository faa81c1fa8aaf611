// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the game can play with: the range of each number that would otherwise cost the player the frame rate,
// the memory or the picture. GameSettings holds every number to it that it reads; docs/settings.md states it.
#pragma once

class SettingLimits
{
public:
    // The value, or the limit that lies nearest to it; for a NaN the upper one, to whose range the menus
    // count it too. The first time that a key needs this it is logged. Keys without limits keep any value.
    static float Hold(char const* key, float value);
    static int Hold(char const* key, int value);
};
