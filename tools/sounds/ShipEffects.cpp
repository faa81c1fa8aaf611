// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The ship's own sounds: heard from the pilot's seat, inside a small hull.
#include "common/Random.h"
#include "sounds/Effects.h"
#include "synth/Filter.h"
#include "synth/Layers.h"
#include "synth/Mastering.h"
#include "synth/Treatment.h"

#include <array>

namespace maker
{

namespace
{

constexpr CabinShape kCockpit = {0.28, 0.22, 4200.0};
constexpr CabinShape kHull = {0.9, 0.55, 3200.0};

// A burst of noise, struck and filtered around a centre.
Signal Burst(double seconds, double centre, double quality, double fall, std::uint64_t seed)
{
    Signal noise = WhiteNoise(seconds, seed);
    BandPass(noise, centre, quality);
    Multiply(noise, [fall](double time) { return Struck(time, 0.0006, fall); });
    return noise;
}

// A switch that closes: two ticks of a spring and the panel behind it.
Signal Relay(std::uint64_t seed)
{
    constexpr std::array<Mode, 3> kPanel = {{{310.0, 0.5, 0.05}, {820.0, 0.3, 0.03}, {2350.0, 0.25, 0.02}}};
    Signal click = Ring(kPanel, 0.08, 0.0005);
    Add(click, Burst(0.02, 4200.0, 1.2, 0.008, seed), 1.2);
    Add(click, Burst(0.02, 3100.0, 1.2, 0.010, seed + 1), 0.7, 0.011);
    return click;
}

// The turbine's speed as a share of its full speed.
double Spin(double time)
{
    return 0.08 + 0.74 * SmoothStep(0.12, 1.25, time) + 0.18 * SmoothStep(1.15, 1.75, time);
}

// Harmonics that climb with the speed; two of them slightly out of tune beat like two rotors.
Signal Turbine(double detune)
{
    double phase = 0.0;
    return Generate(2.7,
                    [&, detune](double time)
                    {
                        double const spin = Spin(time);
                        phase += 420.0 * detune * spin / kSampleRate;
                        double sum = 0.0;
                        for (int n = 1; n <= 9; ++n)
                        {
                            sum += Sine(phase * n) * Power(n, -1.15 - 0.9 * (1.0 - spin));
                        }
                        return sum * spin * SmoothStep(0.08, 0.30, time);
                    });
}

Signal Exhaust(std::uint64_t seed)
{
    Signal noise = WhiteNoise(2.7, seed);
    SweepFilter filter;
    for (std::size_t i = 0; i < noise.size(); ++i)
    {
        double const time = static_cast<double>(i) / kSampleRate;
        double const lit = SmoothStep(1.10, 1.16, time);
        double const flare = lit * Exp(-(time - 1.1) / 0.28);
        filter.Set(140.0 + 520.0 * Spin(time) + 2600.0 * flare, 1.0 / 0.8);
        noise[i] = filter.Low(noise[i]) * (0.16 * Spin(time) + 0.5 * lit + 1.5 * flare);
    }
    return noise;
}

// Stones that rattle off the hull, thick at first and then ever rarer.
void AddDebris(Stereo& sound)
{
    Random random(808);
    for (int i = 0; i < 60; ++i)
    {
        double const when = random.Unit();
        double const centre = 500.0 * Exp2(3.2 * random.Unit());
        double const place = random.Range(-0.9, 0.9);
        double const weight = random.Range(0.3, 1.0);
        double const at = 0.05 + 1.35 * when * when;
        Signal const chip =
            Burst(0.09, centre, 3.5, random.Range(0.02, 0.08), 900 + static_cast<std::uint64_t>(i));
        sound.Add(chip, 0.60 * weight * weight * (1.0 - 0.75 * when), place, at);
    }
}

// Rock along metal: its grip changes some seventy times a second, and a firmer grip sounds brighter.
Signal Scrape(double seconds)
{
    Random random(91);
    SweepFilter body;
    SweepFilter edge;
    double grip = 0.0;
    double target = 0.0;
    Signal noise = WhiteNoise(seconds, 92);
    for (std::size_t i = 0; i < noise.size(); ++i)
    {
        double const time = static_cast<double>(i) / kSampleRate;
        if (random.Unit() < 70.0 / kSampleRate)
        {
            target = random.Unit();
        }
        grip += (target - grip) * 0.012;
        body.Set(520.0 + 900.0 * grip, 1.0 / 3.0);
        edge.Set(1900.0 + 2600.0 * grip + 700.0 * time, 1.0 / 5.0);
        noise[i] = (body.Band(noise[i]) + 0.75 * edge.Band(noise[i])) * (0.15 + 1.3 * grip * grip);
    }
    return noise;
}

// From the bow on the left to the stern on the right.
void AddPassing(Stereo& sound, Signal const& layer, double seconds)
{
    for (std::size_t i = 0; i < layer.size(); ++i)
    {
        double const place = SmoothStep(0.0, seconds, static_cast<double>(i) / kSampleRate);
        sound.left[i] += layer[i] * (1.1 - 0.8 * place);
        sound.right[i] += layer[i] * (0.3 + 0.8 * place);
    }
}

} // namespace

Stereo MakeStarter()
{
    Stereo sound(2.75);
    sound.Add(Relay(31), 0.30, -0.2, 0.0);
    sound.Add(Relay(41), 0.24, 0.2, 0.13);
    Signal const upper = Turbine(1.0);
    Signal const lower = Turbine(1.006);
    sound.Add(upper, 0.10, -0.4);
    sound.Add(lower, 0.10, 0.4);
    sound.Add(Exhaust(51), 0.30, -0.6);
    sound.Add(Exhaust(52), 0.30, 0.6);
    sound.Add(Thump(0.7, 120.0, 44.0, 0.06, 0.6), 0.85, 0.0, 1.1);
    Signal hum =
        Generate(1.65,
                 [](double time)
                 {
                     return (Sine(55.0 * time) + 0.5 * Sine(110.0 * time) + 0.2 * Sine(165.2 * time)) *
                            SmoothStep(0.0, 0.4, time);
                 });
    sound.Add(hum, 0.07, 0.0, 1.1);
    sound.ForEach(
        [](Signal& channel)
        {
            Multiply(channel, [](double time) { return SmoothStep(2.75, 1.9, time); });
            Drive(channel, 0.8);
        });
    AddCabin(sound, kCockpit, 0.10);
    Finish(sound, 0.15);
    return sound;
}

Stereo MakeControls()
{
    // A player in a hurry hears it twice a second: it is short, and most of its energy lies below 1 kHz.
    constexpr std::array<Mode, 4> kLever = {
        {{204.0, 0.70, 0.030}, {412.0, 0.50, 0.022}, {905.0, 0.30, 0.012}, {1730.0, 0.16, 0.008}}};
    Stereo sound(0.10);
    sound.Add(Ring(kLever, 0.09, 0.0008), 0.5, 0.0, 0.003);
    sound.Add(Burst(0.012, 2100.0, 0.8, 0.004, 61), 0.7, 0.05, 0.0015);
    sound.Add(Burst(0.016, 1500.0, 1.1, 0.010, 62), 0.28, -0.05, 0.013);
    sound.ForEach([](Signal& channel) { LowPass(channel, 5200.0); });
    AddCabin(sound, {0.09, 0.10, 3000.0}, 0.10);
    Finish(sound, 0.03);
    return sound;
}

Stereo MakeWham()
{
    constexpr std::array<Mode, 9> kPlates = {{{83.0, 0.9, 1.5},
                                              {131.0, 0.8, 1.7},
                                              {197.0, 0.6, 1.9},
                                              {288.0, 0.45, 1.6},
                                              {411.0, 0.30, 1.3},
                                              {569.0, 0.22, 1.0},
                                              {774.0, 0.13, 0.8},
                                              {1043.0, 0.08, 0.6},
                                              {1391.0, 0.05, 0.4}}};
    Stereo sound(2.5);
    sound.Add(Thump(0.9, 190.0, 36.0, 0.045, 0.75), 1.5);
    Signal const first = Burst(0.5, 420.0, 0.5, 0.30, 71);
    Signal const second = Burst(0.5, 360.0, 0.5, 0.34, 72);
    sound.Add(first, 2.2, -0.7);
    sound.Add(second, 2.2, 0.7);
    sound.Add(Burst(0.08, 2600.0, 0.6, 0.05, 73), 1.2);
    sound.Add(Burst(0.25, 900.0, 0.8, 0.16, 74), 1.1, 0.2, 0.038);
    sound.ForEach([](Signal& channel) { Drive(channel, 3.0); });
    sound.Add(Ring(kPlates, 2.3, 0.004), 0.12, -0.25, 0.006);
    sound.Add(Ring(std::span(kPlates).subspan(2), 2.3, 0.004), 0.10, 0.35, 0.017);
    AddDebris(sound);
    sound.ForEach([](Signal& channel) { Drive(channel, 1.8); });
    AddCabin(sound, kHull, 0.13);
    Finish(sound, 0.5);
    return sound;
}

Stereo MakeGraze()
{
    constexpr std::array<Mode, 4> kSkin = {
        {{233.0, 0.5, 0.7}, {347.0, 0.4, 0.6}, {618.0, 0.2, 0.5}, {1109.0, 0.1, 0.4}}};
    Stereo sound(1.15);
    Signal scrape = Scrape(0.85);
    Multiply(scrape, [](double time) { return SmoothStep(0.0, 0.05, time) * SmoothStep(0.85, 0.35, time); });
    AddPassing(sound, scrape, 0.8);
    sound.Add(Ring(kSkin, 0.9, 0.02), 0.20, -0.2, 0.02);
    sound.ForEach([](Signal& channel) { Drive(channel, 1.4); });
    sound.Add(Thump(0.25, 170.0, 70.0, 0.03, 0.2), 0.9);
    AddCabin(sound, kHull, 0.10);
    Finish(sound, 0.25);
    return sound;
}

} // namespace maker
