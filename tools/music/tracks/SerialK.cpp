// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "SerialK": mechanical and serial. Everything that has a pitch comes from one row of the twelve tones and
// its inversion and retrogrades; every bar has twelve sixteenths, 3 + 3 + 2 + 2 + 2, one for each tone. 126
// beats a minute, 84 bars: the machine is put together, runs, carries a canon, becomes a clock, then a press,
// runs at full load and is taken apart again.
#include "music/tracks/SerialKScore.h"
#include "music/tracks/Tracks.h"

namespace maker
{

using namespace serial;

namespace
{

// The row itself, one tone a sixteenth, over a sine that holds the form's first tone.
void Bass(Piece& piece)
{
    SynthPatch bass = {.wave = Wave::Pulse,
                       .unison = 2,
                       .detune = 0.1,
                       .width = 0.2,
                       .pulseWidth = 0.4,
                       .amp = {0.002, 0.5, 0.5, 0.04},
                       .resonance = 0.45,
                       .sweep = 3.0,
                       .filter = {0.001, 0.22, 0.0, 0.04},
                       .drive = 1.4};
    Part part(piece);
    auto const play = [&](int from, int to, double cutoffFrom, double cutoffTo)
    {
        for (int step = from * 12; step < to * 12; ++step)
        {
            bass.cutoff = cutoffFrom + (cutoffTo - cutoffFrom) * (step - from * 12) / ((to - from) * 12);
            auto const place = static_cast<std::size_t>(step % 12);
            bool const weight = kWeights[place] == 'X';
            double const pitch = Folded(FormOf(step / 12), 36)[place];
            part.Play(bass, {0.25 * step, weight ? 0.3 : 0.16, pitch, weight ? 1.0 : 0.6, 0.0});
        }
    };
    play(kAssembly + 8, kRun, 110.0, 260.0);
    play(kRun, kClock, 300.0, 420.0);
    play(kFull, kApart, 380.0, 520.0);
    play(kApart, kBars - 2, 380.0, 110.0);
    part.GiveWay(0.6, 0.1);
    piece.Add(part, {-17.5, -36.0});

    SynthPatch const deep = {.wave = Wave::Sine, .amp = {0.01, 1.0, 1.0, 0.06}};
    Part sine(piece);
    for (int bar = kRun; bar < kApart + 4; ++bar)
    {
        if (bar < kClock || bar >= kPress)
            sine.Play(deep,
                      {piece.Beat(bar), 2.9, static_cast<double>(Folded(FormOf(bar), 31)[0]), 1.0, 0.0});
    }
    sine.GiveWay(0.85, 0.15);
    piece.Add(sine, {-23.5});
}

// Short chords of three tones that follow each other in the row, on the weights.
void Pistons(Piece& piece)
{
    SynthPatch const piston = {.unison = 3,
                               .detune = 0.18,
                               .width = 0.7,
                               .amp = {0.002, 0.2, 0.0, 0.08},
                               .cutoff = 1500.0,
                               .resonance = 0.35,
                               .sweep = 1.8,
                               .filter = {0.001, 0.14, 0.0, 0.08}};
    Part part(piece);
    auto const play = [&](int from, int to, std::string_view marks)
    {
        for (int bar = from; bar < to; ++bar)
        {
            Row const row = Folded(FormOf(bar), 57);
            auto const group = static_cast<std::size_t>(bar % 4) * 3;
            Pattern(
                marks, piece.Beat(bar), 0.25,
                [&](double beat, double velocity)
                {
                    for (std::size_t i = 0; i < 3; ++i)
                        part.Play(piston, {beat, 0.16, static_cast<double>(row[group + i]), velocity, 0.0});
                });
        }
    };
    play(kRun + 4, kCanon, "...X.x....x.");
    play(kCanon + 8, kClock, "..x.....x...");
    play(kFull, kApart, "X..X..X.x.x.");
    HighPass(part, 200.0);
    piece.Add(part, {-22.5, -16.0, -18.0});
}

// The theme, and its inversion as the canon's second voice, two bars behind it.
void Leads(Piece& piece)
{
    SynthPatch const lead = {.unison = 3,
                             .detune = 0.14,
                             .width = 0.3,
                             .amp = {0.006, 1.0, 0.75, 0.15},
                             .cutoff = 1900.0,
                             .resonance = 0.3,
                             .sweep = 1.4,
                             .filter = {0.004, 0.5, 0.35, 0.1},
                             .drive = 0.6,
                             .vibrato = 0.12};
    FmPatch const reed = {.ratio = 2.0,
                          .index = 1.5,
                          .indexDecay = 0.8,
                          .indexFloor = 0.5,
                          .secondRatio = 1.0,
                          .secondIndex = 0.5,
                          .detune = 0.1,
                          .amp = {0.01, 1.5, 0.7, 0.15},
                          .vibrato = 0.1};
    Part part(piece);
    Notes const prime = Theme(Transposed(kPrime, 72));
    Notes const inverse = Theme(Transposed(Inverted(kPrime), 79));
    part.Sing(lead, prime, kRun + 8, 0.0, 0.8);
    for (int bar = kCanon; bar < kClock; bar += 8)
    {
        part.Sing(lead, prime, bar, 0.0, 1.0);
        part.Sing(reed, inverse, bar + 2, 0.0, 0.7);
        part.Sing(lead, Theme(Transposed(Retrograde(kPrime), 72)), bar + 4, 0.0, 1.0);
        if (bar + 8 < kClock)
            part.Sing(reed, Theme(Transposed(Retrograde(Inverted(kPrime)), 79)), bar + 6, 0.0, 0.7);
    }
    int const transpositions[] = {0, 3, 2, 0};
    for (int i = 0; i < 4; ++i)
    {
        part.Sing(lead, i == 1 ? inverse : prime, kFull + 4 * i, transpositions[i], 1.0);
        part.Sing(reed, i == 1 ? prime : inverse, kFull + 4 * i, transpositions[i], 0.45);
    }
    HighPass(part, 180.0);
    piece.Add(part, {-17.5, -16.0, -15.0});
}

// A musical box: retrograde forms, a tone every five sixteenths and another every seven, thrown from side to
// side.
void Clockwork(Piece& piece)
{
    FmPatch const box = {
        .ratio = 5.19, .index = 0.9, .indexDecay = 0.35, .detune = 0.05, .amp = {0.001, 1.6, 0.0, 0.6}};
    Part part(piece);
    auto const play = [&](int from, int to, int steps, Row const& row, double pan, double velocity)
    {
        std::size_t tone = 0;
        for (int step = from * 12; step < to * 12; step += steps, ++tone)
        {
            double const side = tone % 2 == 0 ? pan : 0.4 * pan;
            part.Play(box, {0.25 * step, 1.0, static_cast<double>(row[tone % 12]), velocity, side});
        }
    };
    play(kAssembly, kRun, 6, Folded(Transposed(kPrime, 0), 84), -0.4, 0.5);
    play(kClock, kPress, 5, Transposed(Retrograde(kPrime), 72), -0.7, 0.9);
    play(kClock + 2, kPress, 7, Transposed(Inverted(kPrime), 91), 0.7, 0.7);
    play(kClock + 4, kPress, 3, Folded(Transposed(Retrograde(Inverted(kPrime)), 0), 72), 0.1, 0.5);
    play(kApart + 2, kBars, 6, Folded(Transposed(kPrime, 0), 84), -0.4, 0.5);
    piece.Add(part, {-20.0, -11.0, -9.0});
}

// The press: heavy chords of three tones, each with its root doubled below.
void PressChords(Piece& piece)
{
    SynthPatch const brass = {.unison = 5,
                              .detune = 0.24,
                              .width = 0.9,
                              .amp = {0.02, 1.2, 0.7, 0.4},
                              .cutoff = 700.0,
                              .resonance = 0.15,
                              .sweep = 2.4,
                              .filter = {0.05, 0.8, 0.25, 0.3},
                              .drive = 0.5};
    Part part(piece);
    auto const strike = [&](int bar, double at, std::size_t group, double beats, double velocity)
    {
        Row const row = Folded(FormOf(bar), 52);
        for (std::size_t i = 0; i < 3; ++i)
            part.Play(brass,
                      {piece.Beat(bar) + at, beats, static_cast<double>(row[group * 3 + i]), velocity, 0.0});
        part.Play(brass,
                  {piece.Beat(bar) + at, beats, static_cast<double>(row[group * 3] - 12), velocity, 0.0});
    };
    for (int bar = kPress; bar < kFull; ++bar)
    {
        auto const group = static_cast<std::size_t>(bar % 4);
        strike(bar, 0.0, group, 1.4, 1.0);
        strike(bar, bar % 2 == 0 ? 2.0 : 1.5, (group + 1) % 4, 0.8, 0.75);
    }
    for (int bar = kFull; bar < kApart; ++bar)
        strike(bar, 0.0, static_cast<std::size_t>(bar % 4), 2.8, 0.45);
    HighPass(part, 110.0);
    part.GiveWay(0.4, 0.15);
    piece.Add(part, {-19.0, -11.0});
}

// Plucked wires that run through the row at double speed, as answers to the leads.
void Wires(Piece& piece)
{
    StringPatch const wire = {.ring = 0.7, .brightness = 0.75, .pickPosition = 0.13};
    Part part(piece);
    auto const run = [&](int bar, Row const& row, double pan)
    {
        for (std::size_t i = 0; i < row.size(); ++i)
        {
            double const share = static_cast<double>(i) / 11.0;
            part.Play(wire, {piece.Beat(bar) + 1.5 + 0.125 * static_cast<double>(i), 0.4,
                             static_cast<double>(row[i]), 0.6 + 0.4 * share, pan * (1.0 - 2.0 * share)});
        }
    };
    for (int bar = kRun + 3; bar < kClock; bar += 4)
        run(bar, Folded(FormOf(bar), 60), bar % 8 == 3 ? 0.7 : -0.7);
    for (int bar = kFull + 1; bar < kApart; bar += 2)
        run(bar, Folded(FormOf(bar), 72), bar % 4 == 1 ? 0.7 : -0.7);
    HighPass(part, 180.0);
    piece.Add(part, {-20.5, -15.0, -12.0});
}

void Drone(Piece& piece)
{
    SynthPatch const hum = {.unison = 5,
                            .detune = 0.3,
                            .width = 1.0,
                            .amp = {0.8, 2.0, 0.9, 1.5},
                            .cutoff = 420.0,
                            .resonance = 0.3,
                            .sweep = 1.6,
                            .filter = {3.0, 3.0, 0.3, 2.0}};
    Part part(piece);
    for (int bar = 0; bar < kBars; bar += 4)
    {
        Row const row = Folded(FormOf(bar), 43);
        part.Play(hum, {piece.Beat(bar), 12.0, static_cast<double>(row[0]), 0.9, 0.0});
        part.Play(hum, {piece.Beat(bar), 12.0, static_cast<double>(row[4] > row[0] ? row[4] : row[4] + 12),
                        0.7, 0.0});
        part.Play(hum, {piece.Beat(bar), 12.0, static_cast<double>(row[3] + 12), 0.6, 0.0});
    }
    HighPass(part, 120.0);
    part.GiveWay(0.5, 0.2);
    piece.Add(part, {-24.5, -14.0});
}

void Rushes(Piece& piece)
{
    Part part(piece);
    part.Play(Rush{300.0, 8000.0, 0.0, 0.3, 0.7}, piece.Beat(kRun - 2), 6.0);
    part.Play(Rush{300.0, 9000.0, 0.0, 0.3, 0.7}, piece.Beat(kFull - 2), 6.0);
    part.Play(Rush{7000.0, 250.0, 0.25, 0.0, 0.5}, piece.Beat(kClock), 6.0);
    part.Play(Rush{7000.0, 250.0, 0.25, 0.0, 0.5}, piece.Beat(kApart), 6.0);
    piece.Add(part, {-27.0, -16.0});
}

} // namespace

StereoLoop SerialK()
{
    Piece piece(126.0, 3.0, kBars);
    Drums(piece);
    Bass(piece);
    Pistons(piece);
    Leads(piece);
    Clockwork(piece);
    PressChords(piece);
    Wires(piece);
    Drone(piece);
    Rushes(piece);
    StereoLoop mix = piece.Mix({1.8, 0.01, 5200.0, 0.7, 260.0}, {0.75, 0.35, 500.0, 5000.0});
    HighShelf(mix, 3000.0, 2.0);
    LowShelf(mix, 120.0, -0.5);
    Lift(mix, 2800.0, 1.5);
    Compress(mix, -15.0);
    return mix;
}

} // namespace maker
