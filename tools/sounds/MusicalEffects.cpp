// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The fanfare and the high-score chime.
#include "sounds/Effects.h"
#include "synth/Layers.h"
#include "synth/Mastering.h"
#include "synth/Treatment.h"

#include <array>

namespace maker
{

namespace
{

struct Chord
{
    double start;
    double length;
    double bite;
    std::array<int, 6> notes; // trumpets, horns, trombones from above; 0 is a rest
};

// Three repeated notes, a step up by way of the chord below the tonic, and home.
constexpr std::array<Chord, 6> kFanfare = {{
    {0.00, 0.085, 0.80, {74, 71, 67, 62, 55, 43}},
    {0.15, 0.075, 0.72, {74, 71, 67, 62, 55, 43}},
    {0.30, 0.075, 0.76, {74, 71, 67, 62, 55, 43}},
    {0.45, 0.25, 0.88, {77, 72, 69, 65, 53, 41}},
    {0.80, 0.08, 0.85, {79, 76, 72, 67, 60, 48}},
    {0.95, 1.18, 1.00, {79, 74, 71, 67, 55, 43}},
}};

constexpr std::array<double, 6> kPlace = {-0.35, 0.10, 0.38, -0.55, 0.50, 0.05};
constexpr std::array<double, 6> kLevel = {1.0, 0.78, 0.72, 0.66, 0.80, 0.95};

void PlayChord(Stereo& sound, Chord const& chord, std::uint64_t seed)
{
    for (std::size_t voice = 0; voice < chord.notes.size(); ++voice)
    {
        for (std::uint64_t player = 0; player < 2; ++player)
        {
            BrassNote const note = {static_cast<double>(chord.notes[voice]), chord.length,
                                    chord.bite * (voice < 3 ? 0.92 : 0.80), 9.0};
            Signal const line = Brass(note, seed * 100 + voice * 10 + player);
            double const place = kPlace[voice] + (player == 0 ? -0.12 : 0.12);
            sound.Add(line, 0.11 * kLevel[voice], place, chord.start + 0.004 * static_cast<double>(player));
        }
    }
}

Signal Timpani(double pitch)
{
    std::array<Mode, 5> const modes = {{{pitch, 1.0, 1.5},
                                        {pitch * 1.5, 0.55, 1.1},
                                        {pitch * 1.98, 0.35, 0.8},
                                        {pitch * 2.44, 0.2, 0.6},
                                        {pitch * 2.9, 0.1, 0.4}}};
    Signal drum = Ring(modes, 1.7, 0.003);
    Signal mallet = WhiteNoise(0.09, 5);
    LowPass(mallet, 700.0);
    Multiply(mallet, [](double time) { return Struck(time, 0.001, 0.06); });
    Add(drum, mallet, 1.6);
    return drum;
}

Signal Cymbal(double seconds, std::uint64_t seed)
{
    Signal noise = WhiteNoise(seconds, seed);
    HighPass(noise, 4200.0);
    Lift(noise, 8200.0, 1.5, 6.0);
    Multiply(noise,
             [](double time) { return 0.8 * Struck(time, 0.004, 2.2) + 0.5 * Struck(time, 0.001, 0.12); });
    return noise;
}

} // namespace

Stereo MakeFanfare()
{
    Stereo sound(2.9);
    for (std::size_t i = 0; i < kFanfare.size(); ++i)
    {
        PlayChord(sound, kFanfare[i], i + 1);
    }
    for (double const start : {0.0, 0.45})
    {
        sound.Add(Timpani(Hertz(start < 0.1 ? 43 : 41)), 0.16, 0.0, start);
    }
    sound.Add(Timpani(Hertz(43)), 0.32, 0.0, 0.95);
    sound.Add(Cymbal(1.9, 21), 0.050, -0.4, 0.945);
    sound.Add(Cymbal(1.9, 22), 0.050, 0.4, 0.949);
    sound.ForEach([](Signal& channel) { Lift(channel, 2600.0, 0.8, 2.5); });
    AddCabin(sound, {1.5, 1.0, 5200.0}, 0.115);
    Finish(sound, 0.45);
    return sound;
}

Stereo MakeHiScore()
{
    constexpr std::array<int, 9> kRun = {67, 71, 74, 78, 79, 83, 86, 90, 91};
    constexpr std::array<int, 4> kChord = {79, 83, 86, 93};
    Stereo sound(2.7);
    for (std::size_t i = 0; i < kRun.size(); ++i)
    {
        double const at = 0.072 * static_cast<double>(i);
        double const place = 0.55 * Sine(0.21 * static_cast<double>(i));
        sound.Add(Bell(Hertz(kRun[i]), 3.0, 1.8, 1.2, 0.7), 0.34, place, at);
        sound.Add(Bell(Hertz(kRun[i] + 12), 1.0, 0.7, 0.5, 0.4), 0.12, -place, at);
    }
    for (std::size_t i = 0; i < kChord.size(); ++i)
    {
        double const place = -0.6 + 0.4 * static_cast<double>(i);
        sound.Add(Bell(Hertz(kChord[i]), 2.0, 1.4, 2.0, 1.5), 0.30, place,
                  0.70 + 0.008 * static_cast<double>(i));
        sound.Add(Bell(Hertz(kChord[i] - 12) * 1.002, 1.0, 0.9, 2.0, 1.2), 0.22, -place, 0.70);
    }
    for (int i = 0; i < 14; ++i)
    {
        double const at = 0.78 + 0.075 * i;
        double const pitch = Hertz(kChord[static_cast<std::size_t>(i * 3 % 4)] + 12 + 12 * (i % 2));
        sound.Add(Bell(pitch, 3.5, 0.8, 0.4, 0.35), 0.07 * (1.0 - i / 16.0), i % 2 == 0 ? -0.8 : 0.8, at);
    }
    AddCabin(sound, {1.4, 0.9, 7500.0}, 0.14);
    Finish(sound, 0.4);
    return sound;
}

} // namespace maker
