// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Sound while it is being made: samples of one channel or two at 44.1 kHz, any level.
#pragma once

#include "synth/Units.h"

#include <functional>
#include <vector>

namespace maker
{

using Signal = std::vector<double>;

Signal Silence(double seconds);

// A value for each time in seconds.
using Curve = std::function<double(double)>;

// Calls the curve for one sample after the other.
Signal Generate(double seconds, Curve const& sampleAt);

void Multiply(Signal& signal, Curve const& levelAt);

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
