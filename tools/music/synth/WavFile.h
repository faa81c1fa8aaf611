// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Writes a loop as a WAV file of 24 bits a sample, once around from its first frame.
#pragma once

#include "synth/StereoLoop.h"

#include <string>

namespace music
{

// False where the file could not be written.
bool WriteWav(StereoLoop const& loop, std::string const& path);

} // namespace music
