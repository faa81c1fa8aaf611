// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Filters, distortion, chorus and ducking; the room and the echo are in Room.cpp.
#include "synth/Treatment.h"

#include "synth/Envelope.h"
#include "synth/Filter.h"

#include <functional>

namespace maker
{

namespace
{

constexpr double kFilterMemory = 0.5; // seconds
constexpr double kFlat = 1.0 / 0.7071;
constexpr double kFlatInLoops = 1.4141952;

// run(filter, sample) gives the sample that comes out.
template <class Filter, class Run>
void Filtered(Signal& signal, Filter filter, Run const& run)
{
    for (double& sample : signal)
    {
        sample = run(filter, sample);
    }
}

template <class Filter, class Run>
void Filtered(StereoLoop& loop, Filter const& filter, Run const& run)
{
    Filter leftFilter = filter;
    Filter rightFilter = filter;
    ProcessLoop(loop, kFilterMemory,
                [&](double& left, double& right)
                {
                    left = run(leftFilter, left);
                    right = run(rightFilter, right);
                });
}

// Multiplies what the filter passes by the factor.
template <class Sound, class Filter>
void Raise(Sound& sound, Filter const& filter, double (Filter::*part)(double), double factor)
{
    Filtered(sound, filter,
             [=](Filter& running, double x) { return x + (factor - 1.0) * (running.*part)(x); });
}

} // namespace

void HighPass(StereoLoop& loop, double cutoff)
{
    Filtered(loop, SweepFilter(cutoff, kFlatInLoops), std::mem_fn(&SweepFilter::High));
}

void HighPass(Signal& signal, double cutoff)
{
    Filtered(signal, SweepFilter(cutoff, kFlat), std::mem_fn(&SweepFilter::High));
}

void LowPass(Signal& signal, double cutoff)
{
    Filtered(signal, SweepFilter(cutoff, kFlat), std::mem_fn(&SweepFilter::Low));
}

void BandPass(Signal& signal, double centre, double quality)
{
    Filtered(signal, SweepFilter(centre, 1.0 / quality), std::mem_fn(&SweepFilter::Band));
}

void HighShelf(StereoLoop& loop, double cutoff, double decibels)
{
    Raise(loop, OnePole(cutoff), &OnePole::High, Gain(decibels));
}

void LowShelf(StereoLoop& loop, double cutoff, double decibels)
{
    Raise(loop, OnePole(cutoff), &OnePole::Low, Gain(decibels));
}

void Lift(StereoLoop& loop, double centre, double decibels)
{
    Raise(loop, SweepFilter(centre, Damping(0.5)), &SweepFilter::Band, Gain(decibels));
}

void Lift(Signal& signal, double centre, double quality, double decibels)
{
    Raise(signal, SweepFilter(centre, 1.0 / quality), &SweepFilter::Band, Exp2(decibels / 6.0206));
}

void Drive(Signal& signal, double drive)
{
    for (double& sample : signal)
    {
        sample = SoftClip(drive * sample) / drive;
    }
}

void Chorus(StereoLoop& loop, int cycles, double depth, double mix)
{
    StereoLoop const dry = loop;
    std::size_t const length = dry.Length();
    auto const read = [&](std::size_t index, double delay, bool left)
    {
        double const place = static_cast<double>(index + length) - delay * kSampleRate;
        double const whole = std::floor(place);
        auto const at = static_cast<std::size_t>(whole);
        Frame const& a = dry[at % length];
        Frame const& b = dry[(at + 1) % length];
        double const from = left ? a.left : a.right;
        double const to = left ? b.left : b.right;
        return from + (place - whole) * (to - from);
    };
    for (std::size_t i = 0; i < length; ++i)
    {
        double const turn = cycles * static_cast<double>(i) / static_cast<double>(length);
        double const leftDelay = 0.008 + depth * (1.0 + Sine(turn));
        double const rightDelay = 0.010 + depth * (1.0 + Sine(turn + 0.25));
        loop[i].left += static_cast<float>(mix * read(i, leftDelay, true));
        loop[i].right += static_cast<float>(mix * read(i, rightDelay, false));
    }
}

void Duck(StereoLoop& loop, Ducking const& ducking, std::vector<double> const& beats, Tempo const& tempo)
{
    // Reduced[i]: by how much frame i is lowered; overlapping kicks do not add up.
    std::vector<float> reduced(loop.Length(), 0.0F);
    std::size_t const attack = Frames(0.004);
    double const recover = Exp2(-3.3219 / (ducking.recovery * kSampleRate));
    std::size_t const length = Frames(4.0 * ducking.recovery);
    for (double const beat : beats)
    {
        double amount = ducking.depth;
        for (std::size_t i = 0; i < length; ++i)
        {
            double const onset = i < attack ? static_cast<double>(i) / static_cast<double>(attack) : 1.0;
            float& slot = reduced[(tempo.FrameAt(beat) + i) % loop.Length()];
            slot = std::max(slot, static_cast<float>(amount * onset * TailFade(i, length)));
            amount *= recover;
        }
    }
    for (std::size_t i = 0; i < loop.Length(); ++i)
        loop[i] = {loop[i].left * (1.0F - reduced[i]), loop[i].right * (1.0F - reduced[i])};
}

} // namespace maker
