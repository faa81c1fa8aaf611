// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The last step of every effect.
#pragma once

#include "sounds/Signal.h"

namespace maker
{

// Takes out what lies below hearing, fades the end out over a time in seconds, starts and ends on 0, leaves
// no constant part in either channel, and brings the peak to -1 dB of full scale.
void Finish(Stereo& sound, double fade);

} // namespace maker
