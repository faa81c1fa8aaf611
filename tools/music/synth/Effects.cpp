// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Filters, chorus and ducking; the room and the echo are in Room.cpp.
#include "synth/Effects.h"

#include "synth/Envelope.h"
#include "synth/Filter.h"

#include <algorithm>
#include <cmath>

namespace music
{

namespace
{

constexpr double kFilterMemory = 0.5;    // seconds
constexpr double kButterworth = 0.29888; // the resonance whose damping is the square root of two

// Applies the same one-input filter to both ears.
template <class MakeFilter, class Run>
void FilterBoth(StereoLoop& loop, MakeFilter&& make, Run&& run)
{
    auto leftFilter = make();
    auto rightFilter = make();
    ProcessLoop(loop, kFilterMemory,
                [&](double& left, double& right)
                {
                    left = run(leftFilter, left);
                    right = run(rightFilter, right);
                });
}

StateVariableFilter Butterworth(double hertz)
{
    StateVariableFilter filter;
    filter.Set(hertz, kButterworth);
    return filter;
}

} // namespace

void HighPass(StereoLoop& loop, double hertz)
{
    FilterBoth(
        loop, [=] { return Butterworth(hertz); },
        [](StateVariableFilter& filter, double x)
        {
            filter.Feed(x);
            return filter.High();
        });
}

void LowPass(StereoLoop& loop, double hertz)
{
    FilterBoth(
        loop, [=] { return Butterworth(hertz); },
        [](StateVariableFilter& filter, double x)
        {
            filter.Feed(x);
            return filter.Low();
        });
}

void HighShelf(StereoLoop& loop, double hertz, double decibels)
{
    double const extra = Gain(decibels) - 1.0;
    FilterBoth(
        loop, [=] { return OnePole(hertz); },
        [=](OnePole& filter, double x) { return x + extra * filter.High(x); });
}

void LowShelf(StereoLoop& loop, double hertz, double decibels)
{
    double const extra = Gain(decibels) - 1.0;
    FilterBoth(
        loop, [=] { return OnePole(hertz); },
        [=](OnePole& filter, double x) { return x + extra * filter.Low(x); });
}

void Bell(StereoLoop& loop, double hertz, double decibels)
{
    double const extra = Gain(decibels) - 1.0;
    auto make = [=]
    {
        StateVariableFilter filter;
        filter.Set(hertz, 0.5);
        return filter;
    };
    FilterBoth(loop, make,
               [=](StateVariableFilter& filter, double x)
               {
                   filter.Feed(x);
                   return x + extra * filter.Band();
               });
}

void Drive(StereoLoop& loop, double amount)
{
    ProcessLoop(loop, 0.0,
                [=](double& left, double& right)
                {
                    left = Saturate(left * amount) / amount;
                    right = Saturate(right * amount) / amount;
                });
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

void Widen(StereoLoop& loop, double width)
{
    ProcessLoop(loop, 0.0,
                [=](double& left, double& right)
                {
                    double const middle = 0.5 * (left + right);
                    double const side = 0.5 * width * (left - right);
                    left = middle + side;
                    right = middle - side;
                });
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

} // namespace music
