// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The rise and fall of one note: a straight attack, then a decay towards the sustain level, then a release.
#pragma once

#include "synth/Units.h"

namespace maker
{

struct EnvelopeShape
{
    double attack = 0.003; // seconds to full level
    double decay = 0.3;    // seconds in which the distance to the sustain level falls by 60 dB
    double sustain = 1.0;  // share of the full level
    double release = 0.1;  // seconds in which the level falls by 60 dB
};

class Envelope
{
public:
    // held: seconds from the note's start to its release
    Envelope(EnvelopeShape const& shape, double held)
        : m_rise(1.0 / (shape.attack * kSampleRate)),
          m_decay(DecayPerSample(shape.decay)),
          m_sustain(shape.sustain),
          m_release(DecayPerSample(shape.release)),
          m_held(Frames(held))
    {
    }

    double Next()
    {
        if (m_frame++ >= m_held)
            m_level *= m_release;
        else if (m_rising)
            Rise();
        else
            m_level = m_sustain + (m_level - m_sustain) * m_decay;
        return m_level;
    }

private:
    void Rise()
    {
        m_level += m_rise;
        m_rising = m_level < 1.0;
        m_level = m_rising ? m_level : 1.0;
    }

    double m_rise;
    double m_decay;
    double m_sustain;
    double m_release;
    std::size_t m_held;
    std::size_t m_frame = 0;
    double m_level = 0.0;
    bool m_rising = true;
};

// Fades the last 5 ms of a sound of that many frames, so that cutting its tail makes no click.
inline double TailFade(std::size_t frame, std::size_t frames)
{
    double const left = static_cast<double>(frames - frame) / (0.005 * kSampleRate);
    return left < 1.0 ? left : 1.0;
}

} // namespace maker
