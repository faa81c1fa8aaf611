// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "synth/Layers.h"

#include "common/Maths.h"
#include "common/Random.h"

namespace maker
{

namespace
{

constexpr double kLn1000 = 6.907755;

// The step from 0 to a pitch in semitones as a factor. More exact than Hertz: the brass adds its frequency up
// over tens of thousands of samples.
double Interval(double semitones)
{
    return Exp2(semitones / 12.0, 14);
}

// The level of harmonic n; open (0 to 1) makes the instrument brighter.
double BrassHarmonic(double n, double pitch, double open)
{
    double const frequency = n * pitch;
    double const slope = Mix(2.6, 0.62, open);
    double const body = 1.0 + 0.9 * Exp(-(frequency - 1250.0) * (frequency - 1250.0) / (2.0 * 620.0 * 620.0));
    double const ceiling = 1.0 / (1.0 + Power(frequency / 6200.0, 4.0));
    return Power(n, -slope) * body * ceiling;
}

} // namespace

double Struck(double time, double rise, double fall)
{
    if (time < rise)
    {
        return SmoothStep(0.0, rise, time);
    }
    return Exp(-kLn1000 * (time - rise) / fall);
}

double Held(double time, double length, double rise, double release)
{
    return SmoothStep(0.0, rise, time) * SmoothStep(length + release, length, time);
}

Signal WhiteNoise(double seconds, std::uint64_t seed)
{
    Random random(seed);
    return Generate(seconds, [&](double) { return random.Noise(); });
}

Signal Ring(std::span<Mode const> modes, double seconds, double rise)
{
    return Generate(seconds,
                    [&](double time)
                    {
                        double sum = 0.0;
                        for (std::size_t i = 0; i < modes.size(); ++i)
                        {
                            sum += modes[i].level * Struck(time, rise, modes[i].fall) *
                                   Sine(modes[i].pitch * time + 0.31 * static_cast<double>(i));
                        }
                        return sum;
                    });
}

Signal Thump(double seconds, double from, double to, double glide, double fall)
{
    double phase = 0.0;
    return Generate(seconds,
                    [&, from, to](double time)
                    {
                        phase += Mix(to, from, Exp(-time / glide)) / kSampleRate;
                        return Sine(phase) * Struck(time, 0.002, fall);
                    });
}

Signal Bell(double pitch, double ratio, double depth, double seconds, double fall)
{
    return Generate(seconds,
                    [=](double time)
                    {
                        double const bright = depth * Exp(-kLn1000 * time / (0.55 * fall));
                        double const phase = pitch * time + bright * Sine(pitch * ratio * time) / (2.0 * kPi);
                        return Sine(phase) * Struck(time, 0.0025, fall);
                    });
}

Signal Brass(BrassNote const& note, std::uint64_t seed)
{
    constexpr double kRelease = 0.11;
    constexpr int kMostHarmonics = 40;
    Random random(seed);
    double const hertz = 440.0 * Interval(note.pitch - 69.0);
    double const drift = random.Range(-4.0, 4.0);
    double const rise = random.Range(0.022, 0.034);
    double const pulse = random.Range(4.9, 5.5);
    int const harmonics = std::min(kMostHarmonics, static_cast<int>(13000.0 / hertz));
    double phase = random.Unit();
    double flutter = 0.0;
    std::vector<double> levels(kMostHarmonics + 1);
    int untilUpdate = 0;
    return Generate(note.length + kRelease,
                    [&](double time)
                    {
                        double const breath = Held(time, note.length, rise, kRelease);
                        double const accent = Exp(-time / 0.09);
                        if (untilUpdate-- == 0)
                        {
                            untilUpdate = 15;
                            double const open = note.bite * breath * (0.72 + 0.28 * accent);
                            for (int n = 1; n <= harmonics; ++n)
                            {
                                levels[static_cast<std::size_t>(n)] = BrassHarmonic(n, hertz, open);
                            }
                        }
                        flutter += 0.004 * (random.Noise() - flutter);
                        double const sway = note.vibrato * SmoothStep(0.25, 0.8, time) * Sine(pulse * time);
                        double const scoop = -38.0 * Exp(-time / 0.022);
                        phase +=
                            hertz * Interval(0.01 * (drift + sway + scoop + 60.0 * flutter)) / kSampleRate;
                        double sum = 0.0;
                        for (int n = 1; n <= harmonics; ++n)
                        {
                            sum += levels[static_cast<std::size_t>(n)] * Sine(phase * n);
                        }
                        return sum * breath * (0.8 + 0.35 * accent);
                    });
}

} // namespace maker
