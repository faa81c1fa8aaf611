// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Sound while it is being made: samples of one channel or two at 44.1 kHz, any level.
#pragma once

#include <functional>
#include <vector>

namespace maker
{

inline constexpr double kSampleRate = 44100.0;

using Signal = std::vector<double>;

Signal Silence(double seconds);

// A signal from a function of the time in seconds, called for one sample after the other.
Signal Generate(double seconds, std::function<double(double)> const& sampleAt);

// Adds layer to signal, starting at a time in seconds; what would reach beyond the signal's end is dropped.
void Add(Signal& signal, Signal const& layer, double gain, double start = 0.0);

double Peak(Signal const& signal);

struct Stereo
{
    explicit Stereo(double seconds) : left(Silence(seconds)), right(Silence(seconds)) {}

    // place: -1 (left) to 1 (right), at equal power
    void Add(Signal const& layer, double gain, double place = 0.0, double start = 0.0);

    // Applies one treatment, such as a filter or a distortion, to both channels.
    void ForEach(std::function<void(Signal&)> const& treat);

    Signal left;
    Signal right;
};

} // namespace maker
