// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Renders single drum strokes and rushes of noise.
#include "synth/Drums.h"

#include "common/Random.h"
#include "synth/Envelope.h"
#include "synth/Filter.h"
#include "synth/Oscillator.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace maker
{

namespace
{

class FallingTone
{
public:
    explicit FallingTone(DrumPatch const& patch)
        : m_patch(patch),
          m_fade(DecayPerSample(patch.toneDecay)),
          m_fall(Exp2(-3.3219 / (patch.fallTime * kSampleRate))),
          m_octaves(patch.fall)
    {
    }

    double Next()
    {
        if (m_frame++ % 8 == 0)
            m_step = m_patch.toneHz * Exp2(m_octaves) / kSampleRate;
        m_octaves *= m_fall;
        m_level *= m_fade;
        m_phase += m_step;
        double const value = Sine(m_phase) * m_level;
        return m_patch.drive > 0.0 ? Saturate(value * (1.0 + m_patch.drive)) : value;
    }

private:
    DrumPatch const& m_patch;
    double m_fade;
    double m_fall;
    double m_octaves;
    double m_level = 1.0;
    double m_phase = 0.0;
    double m_step = 0.0;
    std::size_t m_frame = 0;
};

// The loudness of the noise over time: one stroke, or the several quick ones of clapping hands.
class StrokeEnvelope
{
public:
    explicit StrokeEnvelope(DrumPatch const& patch)
        : m_rise(std::min(1.0, 1.0 / (patch.noiseAttack * kSampleRate))),
          m_ring(DecayPerSample(patch.noiseDecay)),
          m_strokesLeft(patch.bursts)
    {
    }

    double Next()
    {
        if (m_frame++ % kStrokeFrames == 0 && m_strokesLeft > 0)
        {
            --m_strokesLeft;
            m_level = 1.0;
        }
        m_level *= m_strokesLeft > 0 ? kShortDecay : m_ring;
        m_attack = std::min(1.0, m_attack + m_rise);
        return m_level * m_attack;
    }

private:
    static constexpr std::size_t kStrokeFrames = 485; // 11 ms
    static constexpr double kShortDecay = 0.9908;     // -60 dB in 17 ms

    double m_rise;
    double m_ring;
    int m_strokesLeft;
    double m_level = 1.0;
    double m_attack = 0.0;
    std::size_t m_frame = 0;
};

class NoiseEar
{
public:
    NoiseEar(DrumPatch const& patch, std::uint64_t place)
        : m_band(patch.band),
          m_noise(Random::From(place)),
          m_filter(patch.noiseHz, Damping(patch.resonance))
    {
    }

    double Next()
    {
        double const noise = m_noise.Noise();
        return m_band == NoiseBand::Band ? 2.0 * m_filter.Band(noise) : m_filter.High(noise);
    }

private:
    NoiseBand m_band;
    Random m_noise;
    SweepFilter m_filter;
};

class Clang
{
public:
    explicit Clang(DrumPatch const& patch)
        : m_fade(DecayPerSample(patch.metalDecay)),
          m_filter(patch.metalCut, Damping(0.2))
    {
        for (std::size_t i = 0; i < kRatios.size(); ++i)
            m_steps[i] = patch.metalHz * kRatios[i] / kSampleRate;
    }

    double Next()
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < kRatios.size(); ++i)
            sum += m_oscillators[i].Next(Wave::Pulse, m_steps[i], 0.5);
        m_level *= m_fade;
        return m_filter.High(sum / 3.0) * m_level;
    }

private:
    static constexpr std::array<double, 6> kRatios = {1.0, 1.342, 1.2312, 1.6532, 1.9523, 2.1523};

    std::array<double, 6> m_steps = {};
    std::array<Oscillator, 6> m_oscillators;
    double m_fade;
    double m_level = 1.0;
    SweepFilter m_filter;
};

double LongestDecay(DrumPatch const& patch)
{
    double seconds = 0.0;
    if (patch.tone > 0.0)
        seconds = patch.toneDecay;
    if (patch.noise > 0.0)
        seconds = std::max(seconds, patch.noiseDecay + patch.noiseAttack + 0.011 * patch.bursts);
    if (patch.metal > 0.0)
        seconds = std::max(seconds, patch.metalDecay);
    return seconds;
}

} // namespace

void Hit(DrumPatch const& patch, double beat, double velocity, Tempo const& tempo, StereoLoop& loop)
{
    auto const place = static_cast<std::uint64_t>(beat * 960.0 + 0.5) * 977U;
    FallingTone tone(patch);
    StrokeEnvelope strokes(patch);
    NoiseEar leftNoise(patch, place);
    NoiseEar rightNoise(patch, place + 1);
    Clang clang(patch);
    double const level = patch.gain * velocity;
    double const toLeft = level * std::min(1.0, 1.0 - patch.pan);
    double const toRight = level * std::min(1.0, 1.0 + patch.pan);
    std::size_t const start = tempo.FrameAt(beat);
    std::size_t const length = Frames(LongestDecay(patch));
    for (std::size_t i = 0; i < length; ++i)
    {
        double const fade = TailFade(i, length);
        double middle = patch.tone > 0.0 ? patch.tone * tone.Next() : 0.0;
        middle += patch.metal > 0.0 ? patch.metal * clang.Next() : 0.0;
        double const envelope = patch.noise * strokes.Next();
        double const left = leftNoise.Next();
        double const right = left + patch.width * (rightNoise.Next() - left);
        loop.Add(start + i, fade * toLeft * (middle + envelope * left),
                 fade * toRight * (middle + envelope * right));
    }
}

void Play(Rush const& rush, double beat, double beats, Tempo const& tempo, StereoLoop& loop)
{
    std::size_t const start = tempo.FrameAt(beat);
    std::size_t const length = Frames(tempo.Seconds(beats));
    Random leftNoise = Random::From(start);
    Random rightNoise = Random::From(start + 1);
    SweepFilter left;
    SweepFilter right;
    for (std::size_t i = 0; i < length; ++i)
    {
        double const share = static_cast<double>(i) / static_cast<double>(length);
        if (i % 32 == 0)
        {
            // cubed, the way from low to high sounds even to the ear
            double const hertz = rush.fromHz + (rush.toHz - rush.fromHz) * share * share * share;
            left.Set(hertz, Damping(rush.resonance));
            right.Set(hertz, Damping(rush.resonance));
        }
        double const level = rush.fromLevel + (rush.toLevel - rush.fromLevel) * share * share;
        double const fade = level * TailFade(i, length);
        loop.Add(start + i, fade * left.Band(leftNoise.Noise()) * 2.0,
                 fade * right.Band(rightNoise.Noise()) * 2.0);
    }
}

} // namespace maker
