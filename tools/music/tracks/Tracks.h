// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The four pieces, mixed, but not yet at their loudness.
#pragma once

#include "synth/StereoLoop.h"

namespace maker
{

StereoLoop Sable();
StereoLoop Electro0032();
StereoLoop SerialK();
StereoLoop AaiTookai();

} // namespace maker
