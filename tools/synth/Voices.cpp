// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Renders single notes. Every note draws its random values from a place made of its own beat and pitch, so
// that adding a note to a piece leaves all others as they are.
#include "synth/Voices.h"

#include "common/Random.h"
#include "synth/Filter.h"

#include <algorithm>
#include <cstdint>

namespace maker
{

namespace
{

constexpr std::size_t kControlFrames = 16; // filter and pitch move this often

std::uint64_t PlaceOf(Note const& note)
{
    return static_cast<std::uint64_t>(note.beat * 960.0 + 0.5) * 131U +
           static_cast<std::uint64_t>(note.pitch * 100.0);
}

// Equal power: a sound keeps its loudness from edge to edge.
struct PanGains
{
    explicit PanGains(double pan) : left(Sine(0.375 + 0.125 * pan)), right(Sine(0.125 + 0.125 * pan)) {}

    double left;
    double right;
};

struct Span
{
    Span(Note const& note, Tempo const& tempo, double release)
        : start(tempo.FrameAt(note.beat)),
          held(tempo.Seconds(note.beats)),
          length(Frames(held + 1.2 * release))
    {
    }

    std::size_t start;
    double held; // seconds
    std::size_t length;
};

// One oscillator of a unison group.
struct UnisonVoice
{
    Oscillator oscillator;
    double detune; // factor on the frequency
    PanGains pan;
};

std::vector<UnisonVoice> MakeUnison(SynthPatch const& patch, Note const& note)
{
    Random noise = Random::From(PlaceOf(note));
    std::vector<UnisonVoice> voices;
    for (int i = 0; i < patch.unison; ++i)
    {
        double const place = patch.unison > 1 ? 2.0 * i / (patch.unison - 1) - 1.0 : 0.0;
        // neighbours in tune go to opposite sides, so that neither ear hears only the sharp half
        double const side = (i % 2 == 0 ? 1.0 : -1.0) * (place < 0.0 ? -place : place);
        double const pan = std::clamp(note.pan + patch.width * side, -1.0, 1.0);
        double const phase = patch.unison > 1 ? 0.5 + 0.4999 * noise.Noise() : 0.0;
        voices.push_back({Oscillator(phase), Exp2(place * patch.detune / 24.0), PanGains(pan)});
    }
    return voices;
}

// One note of a SynthPatch while it sounds.
class SynthVoice
{
public:
    SynthVoice(SynthPatch const& patch, Note const& note, double held)
        : m_patch(patch),
          m_note(note),
          m_amp(patch.amp, held),
          m_filterEnvelope(patch.filter, held),
          m_unison(MakeUnison(patch, note)),
          m_noise(Random::From(PlaceOf(note) + 7)),
          m_pan(note.pan),
          m_level(patch.gain * note.velocity / (1.0 + 0.35 * (patch.unison - 1)))
    {
    }

    Frame Next()
    {
        double const open = m_filterEnvelope.Next();
        if (m_frame % kControlFrames == 0)
            Control(open);
        ++m_frame;
        double left = 0.0;
        double right = 0.0;
        Oscillate(left, right);
        double const amp = m_amp.Next() * m_level;
        return {static_cast<float>(Shape(m_leftFilter.Low(left)) * amp),
                static_cast<float>(Shape(m_rightFilter.Low(right)) * amp)};
    }

private:
    void Control(double open)
    {
        double const seconds = static_cast<double>(m_frame) / kSampleRate;
        double const swing = std::min(1.0, seconds / m_patch.vibratoDelay);
        double pitch = m_note.pitch + m_patch.vibrato * swing * Sine(seconds * m_patch.vibratoRate);
        if (m_patch.slideFrom != 0.0)
            pitch += m_patch.slideFrom * Exp2(-3.32 * seconds / m_patch.slideTime);
        m_step = Hertz(pitch) / kSampleRate;
        double const octaves = m_patch.sweep * open * (0.5 + 0.5 * m_note.velocity) +
                               m_patch.keyFollow * (m_note.pitch - 60.0) / 12.0;
        double const cutoff = m_patch.cutoff * Exp2(octaves);
        m_leftFilter.Set(cutoff, Damping(m_patch.resonance));
        m_rightFilter.Set(cutoff, Damping(m_patch.resonance));
    }

    void Oscillate(double& left, double& right)
    {
        for (UnisonVoice& voice : m_unison)
        {
            double const value =
                voice.oscillator.Next(m_patch.wave, m_step * voice.detune, m_patch.pulseWidth);
            left += value * voice.pan.left;
            right += value * voice.pan.right;
        }
        double middle = m_patch.breath * m_noise.Noise();
        if (m_patch.sub > 0.0)
            middle += m_patch.sub * m_sub.Next(Wave::Sine, 0.5 * m_step, 0.5);
        left += middle * m_pan.left;
        right += middle * m_pan.right;
    }

    double Shape(double x) const
    {
        return m_patch.drive > 0.0 ? Saturate(x * (1.0 + m_patch.drive)) / (1.0 + 0.3 * m_patch.drive) : x;
    }

    SynthPatch const& m_patch;
    Note const& m_note;
    Envelope m_amp;
    Envelope m_filterEnvelope;
    std::vector<UnisonVoice> m_unison;
    Oscillator m_sub;
    Random m_noise;
    PanGains m_pan;
    double m_level;
    SweepFilter m_leftFilter;
    SweepFilter m_rightFilter;
    double m_step = 0.01;
    std::size_t m_frame = 0;
};

// One ear of an FmPatch's note.
class FmVoice
{
public:
    FmVoice(FmPatch const& patch, double pitch) : m_patch(patch), m_pitch(pitch) { SetPitch(pitch); }

    double Next(double depth)
    {
        if (m_patch.vibrato > 0.0 && m_frame % kControlFrames == 0)
            SetPitch(m_pitch + m_patch.vibrato *
                                   Sine(static_cast<double>(m_frame) / kSampleRate * m_patch.vibratoRate));
        ++m_frame;
        m_carrier += m_step;
        m_first += m_step * m_patch.ratio;
        m_second += m_step * m_patch.secondRatio;
        double const second = m_patch.secondIndex * depth * kInTurns * Sine(m_second);
        m_last = Sine(m_first + second + m_patch.feedback * kInTurns * m_last);
        return Sine(m_carrier + m_patch.index * depth * kInTurns * m_last);
    }

private:
    static constexpr double kInTurns = 0.5 / kPi;

    void SetPitch(double pitch) { m_step = Hertz(pitch) / kSampleRate; }

    FmPatch const& m_patch;
    double m_pitch;
    double m_step = 0.0;
    double m_carrier = 0.0;
    double m_first = 0.0;
    double m_second = 0.0;
    double m_last = 0.0;
    std::size_t m_frame = 0;
};

// The string itself: a delay as long as one cycle that loses its highs on every round.
class StringVoice
{
public:
    StringVoice(StringPatch const& patch, Note const& note) : m_cycle(kSampleRate / Hertz(note.pitch))
    {
        m_blend = 0.5 + 0.5 * patch.brightness;
        // the losses are meant for the middle of the range; a high string makes more rounds a second
        m_loss = Exp2(-9.966 * m_cycle / (patch.ring * kSampleRate));
        double const wanted = m_cycle - (1.0 - m_blend);
        m_line.resize(static_cast<std::size_t>(wanted));
        m_fraction = wanted - static_cast<double>(m_line.size());
        Excite(patch, note);
    }

    double Next()
    {
        double const current = m_line[m_index];
        std::size_t const following = m_index + 1 < m_line.size() ? m_index + 1 : 0;
        // linear interpolation and the averaging of the highs in one go
        double const delayed = current * (1.0 - m_fraction) + m_previous * m_fraction;
        m_previous = current;
        double const damped = m_blend * delayed + (1.0 - m_blend) * m_lastDelayed;
        m_lastDelayed = delayed;
        m_line[m_index] = m_loss * damped;
        m_index = following;
        return delayed;
    }

private:
    void Excite(StringPatch const& patch, Note const& note)
    {
        Random noise = Random::From(PlaceOf(note));
        OnePole dull(1200.0 + 9000.0 * patch.brightness * note.velocity);
        std::vector<double> burst(m_line.size());
        for (double& value : burst)
            value = dull.Low(noise.Noise());
        auto const comb = static_cast<std::size_t>(patch.pickPosition * m_cycle);
        double mean = 0.0;
        for (std::size_t i = 0; i < burst.size(); ++i)
        {
            m_line[i] = burst[i] - burst[(i + burst.size() - comb) % burst.size()];
            mean += m_line[i];
        }
        for (double& value : m_line)
            value -= mean / static_cast<double>(m_line.size());
    }

    double m_cycle;
    double m_blend = 0.5;
    double m_loss = 1.0;
    double m_fraction = 0.0;
    std::vector<double> m_line;
    std::size_t m_index = 0;
    double m_previous = 0.0;
    double m_lastDelayed = 0.0;
};

} // namespace

void Play(SynthPatch const& patch, Note const& note, Tempo const& tempo, StereoLoop& loop)
{
    Span const span(note, tempo, patch.amp.release);
    SynthVoice voice(patch, note, span.held);
    for (std::size_t i = 0; i < span.length; ++i)
    {
        Frame const frame = voice.Next();
        double const fade = TailFade(i, span.length);
        loop.Add(span.start + i, fade * frame.left, fade * frame.right);
    }
}

void Play(FmPatch const& patch, Note const& note, Tempo const& tempo, StereoLoop& loop)
{
    Span const span(note, tempo, patch.amp.release);
    Envelope amp(patch.amp, span.held);
    FmVoice left(patch, note.pitch - 0.5 * patch.detune);
    FmVoice right(patch, note.pitch + 0.5 * patch.detune);
    PanGains const pan(note.pan);
    double const fall = DecayPerSample(patch.indexDecay);
    double depth = 1.0;
    // a harder stroke is brighter as well as louder
    double const force = 0.4 + 0.6 * note.velocity;
    for (std::size_t i = 0; i < span.length; ++i, depth *= fall)
    {
        double const level = patch.gain * note.velocity * amp.Next() * TailFade(i, span.length);
        double const index = force * (patch.indexFloor + (1.0 - patch.indexFloor) * depth);
        loop.Add(span.start + i, level * pan.left * left.Next(index), level * pan.right * right.Next(index));
    }
}

void Play(StringPatch const& patch, Note const& note, Tempo const& tempo, StereoLoop& loop)
{
    Span const span(note, tempo, patch.amp.release);
    Envelope amp(patch.amp, span.held);
    StringVoice voice(patch, note);
    PanGains const pan(note.pan);
    for (std::size_t i = 0; i < span.length; ++i)
    {
        double const value =
            patch.gain * note.velocity * amp.Next() * TailFade(i, span.length) * voice.Next();
        loop.Add(span.start + i, value * pan.left, value * pan.right);
    }
}

} // namespace maker
