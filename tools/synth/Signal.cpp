// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Making and mixing signals.
#include "synth/Signal.h"

namespace maker
{

Signal Silence(double seconds)
{
    Signal silence(static_cast<std::size_t>(seconds * kSampleRate), 0.0);
    return silence;
}

Signal Generate(double seconds, Curve const& sampleAt)
{
    Signal signal = Silence(seconds);
    for (std::size_t i = 0; i < signal.size(); ++i)
    {
        signal[i] = sampleAt(static_cast<double>(i) / kSampleRate);
    }
    return signal;
}

void Multiply(Signal& signal, Curve const& levelAt)
{
    for (std::size_t i = 0; i < signal.size(); ++i)
    {
        signal[i] *= levelAt(static_cast<double>(i) / kSampleRate);
    }
}

void Add(Signal& signal, Signal const& layer, double gain, double start)
{
    auto const first = static_cast<std::size_t>(start * kSampleRate);
    for (std::size_t i = 0; i < layer.size() && first + i < signal.size(); ++i)
    {
        signal[first + i] += gain * layer[i];
    }
}

double Peak(Signal const& signal)
{
    double peak = 0.0;
    for (double const sample : signal)
    {
        peak = std::max(peak, std::abs(sample));
    }
    return peak;
}

void Stereo::Add(Signal const& layer, double gain, double place, double start)
{
    double const turn = (place + 1.0) / 8.0;
    maker::Add(left, layer, gain * 1.41421356 * Cosine(turn), start);
    maker::Add(right, layer, gain * 1.41421356 * Sine(turn), start);
}

void Stereo::ForEach(std::function<void(Signal&)> const& treat)
{
    treat(left);
    treat(right);
}

} // namespace maker
