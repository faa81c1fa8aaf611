// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The nine effects of the game.
#pragma once

#include "synth/Signal.h"

namespace maker
{

// Music: at the start, at the finish, for a time among the best.
Stereo MakeFanfare();
Stereo MakeHiScore();

// The ship: its engine, its throttle, its hull.
Stereo MakeStarter();
Stereo MakeControls();
Stereo MakeWham();
Stereo MakeGraze();

// Signals: a waypoint reached, the pointer on an item, an item chosen.
Stereo MakeAttention();
Stereo MakeRollover();
Stereo MakeClick();

} // namespace maker
