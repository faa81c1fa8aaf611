// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Saw, pulse, triangle and sine. Edges are softened to keep their harmonics below half the sample rate,
// beyond which they would come back as false tones.
#pragma once

#include "synth/Units.h"

namespace maker
{

enum class Wave
{
    Saw,
    Pulse,
    Triangle,
    Sine
};

// What a jump of height 2 at phase 0 must be corrected by, to have no energy far above half the sample rate.
inline double EdgeCorrection(double phase, double step)
{
    if (phase < step)
    {
        double const t = phase / step;
        return t + t - t * t - 1.0;
    }
    if (phase > 1.0 - step)
    {
        double const t = (phase - 1.0) / step;
        return t * t + t + t + 1.0;
    }
    return 0.0;
}

class Oscillator
{
public:
    // phase: where in its cycle it begins, 0 to 1
    explicit Oscillator(double phase = 0.0) : m_phase(phase) {}

    // The next sample, -1 to 1; step is the frequency over the sample rate, width the pulse's share of high.
    double Next(Wave wave, double step, double width)
    {
        m_phase += step;
        m_phase -= m_phase >= 1.0 ? 1.0 : 0.0;
        switch (wave)
        {
        case Wave::Saw:
            return Saw(m_phase, step);
        case Wave::Pulse:
        {
            double const falling = m_phase + 1.0 - width;
            return Saw(m_phase, step) - Saw(falling >= 1.0 ? falling - 1.0 : falling, step);
        }
        case Wave::Triangle:
            return m_phase < 0.5 ? 4.0 * m_phase - 1.0 : 3.0 - 4.0 * m_phase;
        case Wave::Sine:
            break;
        }
        return Sine(m_phase);
    }

private:
    static double Saw(double phase, double step) { return 2.0 * phase - 1.0 - EdgeCorrection(phase, step); }

    double m_phase;
};

} // namespace maker
