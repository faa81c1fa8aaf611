// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Filters. Frequencies are in Hz.
#pragma once

#include "sounds/Signal.h"

namespace maker
{

// A state-variable filter in its trapezoidal form (after A. Simper): steady under fast sweeps of its cutoff.
class SweepFilter
{
public:
    // quality: 0.7 is flat, more rings
    void Set(double cutoff, double quality);
    void Feed(double input);

    double Low() const { return m_low; }
    double Band() const { return m_k * m_band; } // unit gain at the cutoff
    double High() const { return m_high; }

private:
    double m_g = 0.1;
    double m_k = 1.4;
    double m_ic1 = 0.0;
    double m_ic2 = 0.0;
    double m_low = 0.0;
    double m_band = 0.0;
    double m_high = 0.0;
};

// The same with a cutoff that stays, over a whole signal.
void LowPass(Signal& signal, double cutoff, double quality = 0.7071);
void HighPass(Signal& signal, double cutoff, double quality = 0.7071);
void BandPass(Signal& signal, double centre, double quality);

// Lifts (decibels above 0) or lowers a region around a frequency.
void Lift(Signal& signal, double centre, double quality, double decibels);

// Drives a signal into a soft limit, with harmonics; drive 1 hardly changes a signal of level 0.3.
void Saturate(Signal& signal, double drive);

} // namespace maker
