// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// AIFF files: 16 bit, 44.1 kHz, one channel or two.
#pragma once

#include "sounds/Signal.h"

#include <cstdint>
#include <string>
#include <vector>

namespace maker
{

struct AiffSound
{
    int channels = 0;
    int sampleBits = 0;
    double rate = 0.0;
    std::vector<std::int16_t> samples; // channels interleaved
};

// Samples outside -1 to 1 are clipped. False when the file can't be written.
bool WriteAiff(Stereo const& sound, std::string const& path);

// False when the file is missing, cut short, or not 16-bit AIFF.
bool ReadAiff(std::string const& path, AiffSound& sound);

} // namespace maker
