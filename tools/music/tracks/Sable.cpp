// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Sable": dark and driving. D minor with a lowered second, 140 beats a minute, 72 bars: an opening on the
// drone, the theme twice, a bridge in half time, a second theme a minor third higher, a breakdown, and the
// theme again with everything that has been heard.
#include "music/tracks/SableScore.h"
#include "music/tracks/Tracks.h"

namespace maker
{

using namespace sable;

namespace
{

BarHarmony const& Harmony(int bar)
{
    auto const index = static_cast<std::size_t>(bar);
    return kHarmonies[index / 8][index % 8];
}

void Bass(Piece& piece)
{
    SynthPatch bass = {.unison = 2,
                       .detune = 0.12,
                       .width = 0.15,
                       .amp = {0.002, 0.6, 0.7, 0.05},
                       .cutoff = 260.0,
                       .resonance = 0.35,
                       .sweep = 3.0,
                       .filter = {0.001, 0.35, 0.1, 0.05},
                       .keyFollow = 0.2,
                       .drive = 1.6};
    Part part(piece);
    auto const play = [&](int from, int to, std::string_view marks, double openness)
    {
        // more open is louder, too
        double const level = openness < 1.0 ? 0.45 + 0.4 * openness : 1.0;
        bass.cutoff = 260.0 * openness;
        for (int bar = from; bar < to; ++bar)
        {
            double const root = PitchOf(Harmony(bar).root);
            double step = 0.0;
            for (char const mark : marks)
            {
                double const pitch = mark == '8' ? root + 12.0 : (mark == '5' ? root + 7.0 : root);
                if (mark != '.')
                    part.Play(bass,
                              {piece.Beat(bar) + step, 0.22, pitch, level * (mark == 'X' ? 1.0 : 0.8), 0.0});
                step += 0.25;
            }
        }
    };
    for (int bar = kOpening; bar < kTheme; ++bar)
        play(bar, bar + 1, "X.XXX.XXX.XXX.XX", 0.55 + 0.07 * bar);
    play(kTheme, kTheme + 8, "X.XXX.XXX.XXX.X8", 1.15);
    play(kTheme + 8, kBridge, "X.XXX.X8X.XXX.58", 1.35);
    play(kSecond, kSecond + 8, ".XX8.XX8.XX8.XX8", 1.3);
    play(kSecond + 8, kBreakdown, ".XX8.XX8.XX8.X58", 1.6);
    for (int bar = kBreakdown + 4; bar < kFinale; ++bar)
        play(bar, bar + 1, "X.XXX.XXX.XXX.XX", 0.5 + 0.3 * (bar - kBreakdown - 4));
    play(kFinale, kFinale + 8, "X.XXX.X8X.XXX.58", 1.6);
    play(kFinale + 8, kBars, "XXX8XXX8XXX8XX58", 1.7);
    part.GiveWay(0.75, 0.11);
    piece.Add(part, {-17.0, -40.0});

    // a clean sine under it keeps the lowest octave even, whatever the filter does
    SynthPatch const sub = {.wave = Wave::Sine, .amp = {0.01, 1.0, 1.0, 0.08}, .cutoff = 500.0};
    Part deep(piece);
    for (int bar = 0; bar < kBars; ++bar)
    {
        bool const silent = bar >= kBreakdown && bar < kBreakdown + 4;
        double const level = bar < kTheme || (bar > kBreakdown && bar < kFinale) ? 0.6 : 1.0;
        if (!silent)
            deep.Play(sub, {piece.Beat(bar), 3.95, PitchOf(Harmony(bar).root), level, 0.0});
    }
    deep.GiveWay(0.85, 0.16);
    piece.Add(deep, {-24.0});
}

void Drone(Piece& piece)
{
    SynthPatch const drone = {.unison = 5,
                              .detune = 0.25,
                              .width = 0.9,
                              .amp = {2.0, 1.0, 1.0, 3.0},
                              .cutoff = 180.0,
                              .resonance = 0.45,
                              .sweep = 3.2,
                              .filter = {9.0, 6.0, 0.2, 4.0}};
    Part part(piece);
    for (int const bar : {kOpening, kBreakdown})
    {
        for (double const pitch : Chord("D2 A2 D3"))
            part.Play(drone, {piece.Beat(bar), 30.0, pitch, 1.0, 0.0});
    }
    HighPass(part, 90.0);
    part.GiveWay(0.5, 0.2);
    piece.Add(part, {-23.0, -14.0});
}

void Pad(Piece& piece)
{
    SynthPatch const pad = {.unison = 5,
                            .detune = 0.28,
                            .width = 1.0,
                            .breath = 0.05,
                            .amp = {0.25, 2.0, 0.85, 1.1},
                            .cutoff = 900.0,
                            .resonance = 0.15,
                            .sweep = 1.2,
                            .filter = {0.9, 2.0, 0.4, 1.0}};
    Part part(piece);
    for (int bar = 0; bar < kBars; ++bar)
    {
        double const velocity = bar >= kBridge && bar < kSecond ? 1.0 : (bar < kTheme ? 0.6 : 0.75);
        for (double const pitch : Chord(Harmony(bar).chord))
            part.Play(pad, {piece.Beat(bar), 4.0, pitch, velocity, 0.0});
    }
    HighPass(part, 180.0);
    Chorus(part, 61, 0.003, 0.5);
    part.GiveWay(0.6, 0.2);
    piece.Add(part, {-23.5, -12.0});
}

void Arpeggio(Piece& piece)
{
    SynthPatch const pulse = {.wave = Wave::Pulse,
                              .unison = 2,
                              .detune = 0.14,
                              .width = 0.3,
                              .pulseWidth = 0.32,
                              .amp = {0.002, 0.25, 0.0, 0.08},
                              .cutoff = 1300.0,
                              .resonance = 0.3,
                              .sweep = 2.0,
                              .filter = {0.001, 0.16, 0.0, 0.08}};
    constexpr int kOrder[] = {0, 2, 1, 3, 2, 1, 3, 2, 0, 3, 1, 2, 3, 1, 2, 0};
    Part part(piece);
    auto const play = [&](int from, int to, double octave, double velocity)
    {
        for (int step = from * 16; step < to * 16; ++step)
        {
            std::vector<double> const chord = Chord(Harmony(step / 16).chord);
            double const pitch = chord[static_cast<std::size_t>(kOrder[step % 16])] + octave;
            double const accent = step % 3 == 0 ? 1.0 : 0.65;
            part.Play(pulse, {0.25 * step, 0.2, pitch, velocity * accent, step % 2 == 0 ? -0.5 : 0.5});
        }
    };
    play(kOpening + 4, kTheme, 0.0, 0.5);
    play(kTheme + 8, kBridge, 12.0, 0.6);
    play(kSecond, kBreakdown, 12.0, 0.9);
    play(kBreakdown + 2, kFinale, 12.0, 0.6);
    play(kFinale, kBars, 12.0, 0.9);
    HighPass(part, 250.0);
    part.GiveWay(0.45, 0.15);
    piece.Add(part, {-24.0, -18.0, -9.0});
}

void Lead(Piece& piece)
{
    SynthPatch lead = {.unison = 3,
                       .detune = 0.16,
                       .width = 0.45,
                       .amp = {0.012, 1.2, 0.8, 0.22},
                       .cutoff = 1500.0,
                       .resonance = 0.25,
                       .sweep = 1.6,
                       .filter = {0.02, 0.9, 0.45, 0.2},
                       .drive = 0.7,
                       .vibrato = 0.18,
                       .slideFrom = -0.6,
                       .slideTime = 0.05};
    Part part(piece);
    auto const play = [&](std::string_view text, int bar, double octave, double velocity)
    { part.Sing(lead, Shortened(Line(text), 0.94), bar, octave, velocity); };
    play(kThemeFirst, kTheme, 0.0, 0.9);
    play(kThemeAnswer, kTheme + 8, 0.0, 1.0);
    play(kSecondFirst, kSecond, 0.0, 0.9);
    play(kSecondAnswer, kSecond + 8, 0.0, 1.0);
    play(kThemeFirst, kFinale, 0.0, 1.0);
    play(kThemeAnswer, kFinale + 8, 0.0, 1.0);
    lead.unison = 2;
    lead.width = 0.8;
    play(kThemeFirst, kFinale, 12.0, 0.3);
    play(kThemeAnswer, kFinale + 8, 12.0, 0.35);
    HighPass(part, 180.0);
    piece.Add(part, {-17.5, -17.0, -14.0});
}

void Counter(Piece& piece)
{
    SynthPatch const strings = {.unison = 6,
                                .detune = 0.22,
                                .width = 0.8,
                                .amp = {0.09, 1.0, 0.9, 0.4},
                                .cutoff = 1900.0,
                                .resonance = 0.05,
                                .vibrato = 0.12};
    Part part(piece);
    auto const play = [&](int bar, double octave, double velocity)
    { part.Sing(strings, Line(kCounter), bar, octave, velocity); };
    play(kTheme + 8, 0.0, 0.8);
    play(kFinale, 0.0, 0.9);
    play(kFinale + 8, 0.0, 1.0);
    play(kFinale + 8, 12.0, 0.6);
    HighPass(part, 200.0);
    part.GiveWay(0.3, 0.15);
    piece.Add(part, {-23.0, -12.0});
}

void Bells(Piece& piece)
{
    FmPatch const bell = {.ratio = 3.5,
                          .index = 2.2,
                          .indexDecay = 1.4,
                          .indexFloor = 0.08,
                          .detune = 0.07,
                          .amp = {0.001, 2.6, 0.0, 1.0}};
    Part part(piece);
    auto const play = [&](int bar, double velocity)
    {
        Notes notes = Line(kBellLine);
        for (std::size_t i = 0; i < notes.size(); ++i)
            notes[i].pan = i % 2 == 0 ? -0.35 : 0.35;
        part.Sing(bell, notes, bar, 0.0, velocity);
    };
    play(kBridge, 1.0);
    play(kBreakdown, 0.55);
    piece.Add(part, {-20.5, -10.0, -10.0});
}

void Rushes(Piece& piece)
{
    Part part(piece);
    Rush const rise{250.0, 7000.0, 0.0, 0.3, 0.55};
    Rush const fade{6000.0, 300.0, 0.22, 0.0, 0.4};
    part.Play(rise, piece.Beat(kTheme - 2), 8.0);
    part.Play(rise, piece.Beat(kSecond - 2), 8.0);
    part.Play(rise, piece.Beat(kFinale - 4), 16.0);
    part.Play(fade, piece.Beat(kBridge), 8.0);
    part.Play(fade, piece.Beat(kBreakdown), 8.0);
    piece.Add(part, {-27.0, -16.0});
}

} // namespace

StereoLoop Sable()
{
    Piece piece(140.0, 4.0, kBars);
    Drums(piece);
    Bass(piece);
    Drone(piece);
    Pad(piece);
    Arpeggio(piece);
    Lead(piece);
    Counter(piece);
    Bells(piece);
    Rushes(piece);
    StereoLoop mix = piece.Mix({2.4, 0.02, 4200.0, 1.0, 220.0}, {0.75, 0.42, 400.0, 3800.0});
    HighShelf(mix, 3000.0, 3.0);
    LowShelf(mix, 150.0, -1.0);
    Lift(mix, 2800.0, 1.5);
    Compress(mix, -16.0);
    return mix;
}

} // namespace maker
