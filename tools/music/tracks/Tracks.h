// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The four pieces, finished but for their loudness. main.cpp masters and writes them.
#pragma once

#include "synth/StereoLoop.h"

namespace maker
{

StereoLoop Sable();
StereoLoop Electro0032();
StereoLoop SerialK();
StereoLoop AaiTookai();

} // namespace maker
