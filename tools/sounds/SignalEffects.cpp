// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The signals: short, pitched, and high enough to be heard through the music.
#include "sounds/Effects.h"
#include "synth/Layers.h"
#include "synth/Mastering.h"
#include "synth/Treatment.h"

#include <array>

namespace maker
{

namespace
{

constexpr double kLowNote = 987.77;   // B5
constexpr double kHighNote = 1479.98; // F sharp 6

void AddChime(Stereo& sound, double pitch, double gain, double place, double start, double fall)
{
    sound.Add(Bell(pitch, 2.0, 1.9, fall, fall), gain, place, start);
    sound.Add(Bell(pitch * 1.0035, 3.0, 1.1, fall, 0.8 * fall), 0.45 * gain, -place, start);
    sound.Add(Bell(pitch * 2.0, 1.0, 0.6, 0.5 * fall, 0.4 * fall), 0.28 * gain, place, start);
    sound.Add(Bell(pitch * 0.5, 1.0, 0.5, fall, 0.6 * fall), 0.35 * gain, 0.0, start);
}

// A few hundredths of a second of damped tones under a tick of noise, like the tap of a finger.
Signal Tap(double pitch, double fall, std::uint64_t seed)
{
    std::array<Mode, 3> const modes = {
        {{pitch, 0.8, fall}, {pitch * 2.01, 0.25, 0.6 * fall}, {pitch * 3.02, 0.10, 0.4 * fall}}};
    Signal tap = Ring(modes, fall, 0.0007);
    Signal tick = WhiteNoise(0.006, seed);
    BandPass(tick, 4.0 * pitch, 0.9);
    Multiply(tick, [](double time) { return Struck(time, 0.0004, 0.004); });
    Add(tap, tick, 0.8);
    return tap;
}

} // namespace

Stereo MakeAttention()
{
    Stereo sound(1.35);
    AddChime(sound, kLowNote, 0.42, -0.25, 0.0, 0.34);
    AddChime(sound, kHighNote, 0.50, 0.25, 0.115, 0.70);
    // Two quiet echoes, at the far left and right.
    AddChime(sound, kHighNote, 0.10, -0.8, 0.345, 0.6);
    AddChime(sound, kHighNote, 0.05, 0.8, 0.575, 0.5);
    AddCabin(sound, {0.9, 0.7, 8000.0}, 0.08);
    Finish(sound, 0.3);
    return sound;
}

Stereo MakeRollover()
{
    Stereo sound(0.075);
    sound.Add(Tap(1480.0, 0.030, 15), 0.8, 0.0, 0.001);
    AddCabin(sound, {0.12, 0.12, 6000.0}, 0.08);
    Finish(sound, 0.03);
    return sound;
}

Stereo MakeClick()
{
    Stereo sound(0.19);
    sound.Add(Tap(740.0, 0.060, 16), 0.8, 0.0, 0.001);
    sound.Add(Tap(1480.0, 0.050, 17), 0.45, 0.0, 0.026);
    sound.Add(Thump(0.06, 240.0, 150.0, 0.015, 0.05), 0.5, 0.0, 0.001);
    AddCabin(sound, {0.16, 0.14, 6000.0}, 0.09);
    Finish(sound, 0.06);
    return sound;
}

} // namespace maker
