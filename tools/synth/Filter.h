// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Filters for one channel, fed one sample a call. Frequencies are in Hz.
#pragma once

#include "synth/Units.h"

#include <algorithm>

namespace maker
{

// A state-variable filter in its trapezoidal form (after A. Simper): steady under fast sweeps of its cutoff.
class SweepFilter
{
public:
    SweepFilter() = default;
    SweepFilter(double cutoff, double damping) { Set(cutoff, damping); }

    // damping: one over the quality; 1.414 is flat, 0 never dies away
    void Set(double cutoff, double damping)
    {
        m_share = Tangent(0.5 * std::clamp(cutoff, 16.0, 19000.0) / kSampleRate);
        m_damping = damping;
        m_scale = 1.0 / (1.0 + m_share * (m_share + m_damping));
    }

    double Low(double input)
    {
        Feed(input);
        return m_low;
    }

    double High(double input)
    {
        Feed(input);
        return input - m_damping * m_band - m_low;
    }

    // Unit gain at the cutoff, whatever the damping.
    double Band(double input)
    {
        Feed(input);
        return m_damping * m_band;
    }

private:
    void Feed(double input)
    {
        m_band = m_scale * (m_bandState + m_share * (input - m_lowState));
        m_low = m_lowState + m_share * m_band;
        m_bandState = 2.0 * m_band - m_bandState;
        m_lowState = 2.0 * m_low - m_lowState;
    }

    double m_share = 0.1;
    double m_damping = 2.0;
    double m_scale = 1.0;
    double m_bandState = 0.0;
    double m_lowState = 0.0;
    double m_low = 0.0;
    double m_band = 0.0;
};

// The damping for a resonance of 0 (none) to 1 (about to ring on its own).
inline double Damping(double resonance)
{
    return 2.0 - 1.96 * resonance;
}

// Falls by 6 dB an octave above (Low) or below (High) its cutoff.
class OnePole
{
public:
    explicit OnePole(double cutoff) : m_share(1.0 - Exp(-2.0 * kPi * cutoff / kSampleRate)) {}

    double Low(double input)
    {
        m_state += m_share * (input - m_state);
        return m_state;
    }

    double High(double input) { return input - Low(input); }

private:
    double m_share;
    double m_state = 0.0;
};

} // namespace maker
