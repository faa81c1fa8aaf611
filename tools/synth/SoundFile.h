// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Sound files, by libsndfile: WAV and AIFF to write, and any format that it knows to read.
#pragma once

#include "synth/Signal.h"
#include "synth/StereoLoop.h"

#include <string>

namespace maker
{

// AIFF, 16 bit, 44.1 kHz. False when the file can't be written.
bool WriteAiff(Stereo const& sound, std::string const& path);

// WAV, 24 bit, 44.1 kHz, once around from the loop's first frame. False when the file can't be written.
bool WriteWav(StereoLoop const& loop, std::string const& path);

struct SoundFile
{
    std::size_t channels = 0;
    double rate = 0.0;
    std::vector<double> samples; // -1 to 1, channels interleaved

    std::size_t Length() const { return channels == 0 ? 0 : samples.size() / channels; } // in frames
    double At(std::size_t frame, std::size_t channel) const { return samples[frame * channels + channel]; }
};

// No samples when the file is missing or can't be decoded.
SoundFile ReadSound(std::string const& path);

} // namespace maker
