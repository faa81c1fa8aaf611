// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The filters that voices and effects are built from. Frequencies are in Hz.
#pragma once

#include "synth/Maths.h"

namespace music
{

// A state-variable filter in its trapezoidal form (after A. Simper): steady under fast sweeps of its cutoff.
class StateVariableFilter
{
public:
    // resonance: 0 (none) to 1 (about to ring on its own)
    void Set(double cutoff, double resonance)
    {
        double const limited = cutoff < 16.0 ? 16.0 : (cutoff > 19000.0 ? 19000.0 : cutoff);
        m_g = Tangent(0.5 * limited / kSampleRate);
        m_k = 2.0 - 1.96 * resonance;
        m_a1 = 1.0 / (1.0 + m_g * (m_g + m_k));
    }

    void Feed(double input)
    {
        double const v3 = input - m_ic2;
        m_band = m_a1 * (m_ic1 + m_g * v3);
        m_low = m_ic2 + m_g * m_band;
        m_high = input - m_k * m_band - m_low;
        m_ic1 = 2.0 * m_band - m_ic1;
        m_ic2 = 2.0 * m_low - m_ic2;
    }

    double Low() const { return m_low; }
    double High() const { return m_high; }

    // Unit gain at the cutoff, whatever the resonance.
    double Band() const { return m_k * m_band; }

private:
    double m_g = 0.1;
    double m_k = 2.0;
    double m_a1 = 1.0;
    double m_ic1 = 0.0;
    double m_ic2 = 0.0;
    double m_low = 0.0;
    double m_band = 0.0;
    double m_high = 0.0;
};

// Falls by 6 dB an octave above (Low) or below (High) its cutoff.
class OnePole
{
public:
    explicit OnePole(double cutoff)
        : m_share(1.0 - Exp2(-2.0 * kPi * cutoff / kSampleRate / 0.6931471805599453))
    {
    }

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

} // namespace music
