// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Filters and distortion.
#include "sounds/Filter.h"

#include "common/Maths.h"

namespace maker
{

void SweepFilter::Set(double cutoff, double quality)
{
    double const turns = 0.5 * std::clamp(cutoff, 16.0, 19500.0) / kSampleRate;
    m_g = Sine(turns) / Cosine(turns);
    m_k = 1.0 / quality;
}

void SweepFilter::Feed(double input)
{
    double const rest = input - m_ic2;
    m_band = (m_ic1 + m_g * rest) / (1.0 + m_g * (m_g + m_k));
    m_low = m_ic2 + m_g * m_band;
    m_high = input - m_k * m_band - m_low;
    m_ic1 = 2.0 * m_band - m_ic1;
    m_ic2 = 2.0 * m_low - m_ic2;
}

void LowPass(Signal& signal, double cutoff, double quality)
{
    SweepFilter filter;
    filter.Set(cutoff, quality);
    for (double& sample : signal)
    {
        filter.Feed(sample);
        sample = filter.Low();
    }
}

void HighPass(Signal& signal, double cutoff, double quality)
{
    SweepFilter filter;
    filter.Set(cutoff, quality);
    for (double& sample : signal)
    {
        filter.Feed(sample);
        sample = filter.High();
    }
}

void BandPass(Signal& signal, double centre, double quality)
{
    SweepFilter filter;
    filter.Set(centre, quality);
    for (double& sample : signal)
    {
        filter.Feed(sample);
        sample = filter.Band();
    }
}

void Lift(Signal& signal, double centre, double quality, double decibels)
{
    double const gain = Exp2(decibels / 6.0206) - 1.0;
    SweepFilter filter;
    filter.Set(centre, quality);
    for (double& sample : signal)
    {
        filter.Feed(sample);
        sample += gain * filter.Band();
    }
}

void Saturate(Signal& signal, double drive)
{
    for (double& sample : signal)
    {
        sample = SoftClip(drive * sample) / drive;
    }
}

} // namespace maker
