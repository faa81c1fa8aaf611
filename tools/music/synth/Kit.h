// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Drums that more than one piece plays. A piece takes one and turns its knobs.
#pragma once

#include "synth/Drums.h"

namespace music
{

DrumPatch DeepKick();
DrumPatch FullSnare();
DrumPatch HandClap();
DrumPatch ClosedHat();
DrumPatch OpenHat();
DrumPatch Crash();
DrumPatch Tom(double hertz, double pan);
DrumPatch Shaker();
DrumPatch WoodBlock(double hertz, double pan);
DrumPatch Anvil(double hertz, double pan);

} // namespace music
