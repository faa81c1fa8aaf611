// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Electro0032": electronic. E Dorian, 128 beats a minute, 64 bars: broken beats under a resonant bass line
// that opens up, a break of electric piano, a build, and a hook over four on the floor.
#include "music/tracks/Electro0032Score.h"
#include "music/tracks/Tracks.h"

namespace maker
{

using namespace electro;

namespace
{

BarHarmony const& Harmony(int bar)
{
    auto const index = static_cast<std::size_t>(bar);
    if (bar >= kBreak && bar < kBuild)
        return kBreakHarmony[index - kBreak];
    if (bar >= kHook && bar < kReturn)
        return kHookHarmony[(index - kHook) % 8];
    return kVerseHarmony[index % 4];
}

void Acid(Piece& piece)
{
    SynthPatch acid = {.amp = {0.002, 0.5, 0.6, 0.04},
                       .resonance = 0.86,
                       .filter = {0.001, 0.28, 0.0, 0.05},
                       .keyFollow = 0.1,
                       .drive = 1.2};
    Part part(piece);
    // openness: octaves by which the cutoff stands above its lowest
    auto const play = [&](int from, int to, double openFrom, double openTo, double transpose)
    {
        for (int step = from * 16; step < to * 16; ++step)
        {
            auto const place = static_cast<std::size_t>(step % 32);
            if (kAcid[place] == kRest)
                continue;
            double const share = static_cast<double>(step - from * 16) / ((to - from) * 16);
            bool const accent = kAcidAccents[place] == 'X';
            bool const slide = kAcidAccents[place] == 'x';
            acid.cutoff = 190.0 * Exp2(openFrom + share * (openTo - openFrom));
            acid.sweep = accent ? 3.2 : 2.2;
            acid.slideFrom = slide ? -5.0 : 0.0;
            part.Play(acid, {0.25 * step, slide ? 0.26 : 0.17, 40.0 + transpose + kAcid[place],
                             accent ? 1.0 : 0.75, 0.0});
        }
    };
    play(kIntro, kVerse, 0.0, 1.6, 0.0);
    play(kVerse + 8, kBreak, 0.8, 2.0, 0.0);
    play(kBuild, kHook, 0.4, 3.0, 12.0);
    play(kReturn, kOutro, 2.2, 1.6, 0.0);
    play(kOutro, kBars, 1.6, 0.0, 0.0);
    HighPass(part, 75.0);
    part.GiveWay(0.5, 0.12);
    piece.Add(part, {-20.5, -26.0, -16.0});
}

void Bass(Piece& piece)
{
    FmPatch const bass = {.ratio = 1.0,
                          .index = 2.6,
                          .indexDecay = 0.3,
                          .indexFloor = 0.25,
                          .feedback = 0.5,
                          .amp = {0.003, 1.2, 0.6, 0.06}};
    Part part(piece);
    auto const play = [&](int from, int to, std::string_view marks, double beats, double level)
    {
        for (int bar = from; bar < to; ++bar)
        {
            double const root = PitchOf(Harmony(bar).root);
            Pattern(marks, piece.Beat(bar), 0.25,
                    [&](double beat, double velocity)
                    {
                        double const pitch = velocity < 0.5 ? root + 12.0 : root;
                        part.Play(bass, {beat, beats, pitch, level * (0.6 + 0.4 * velocity), 0.0});
                    });
        }
    };
    play(kVerse, kBreak, "X..x..x...X.o.x.", 0.32, 1.0);
    play(kBreak, kBuild, "X...............", 3.8, 0.5);
    play(kHook, kHook + 8, "..XX..XX..XX..Xo", 0.23, 1.0);
    play(kHook + 8, kReturn, "..Xo..XX..Xo.oXo", 0.23, 1.0);
    play(kReturn, kOutro, "X..x..x.o.X.o.x.", 0.32, 1.0);
    part.GiveWay(0.8, 0.14);
    piece.Add(part, {-17.5});
}

void Stabs(Piece& piece)
{
    SynthPatch const stab = {.unison = 3,
                             .detune = 0.2,
                             .width = 0.8,
                             .amp = {0.002, 0.3, 0.0, 0.12},
                             .cutoff = 1400.0,
                             .resonance = 0.3,
                             .sweep = 2.0,
                             .filter = {0.001, 0.2, 0.0, 0.1}};
    Part part(piece);
    auto const play = [&](int from, int to, std::string_view marks)
    {
        for (int bar = from; bar < to; ++bar)
        {
            Pattern(marks, piece.Beat(bar), 0.25,
                    [&](double beat, double velocity)
                    {
                        for (double const pitch : Chord(Harmony(bar).chord))
                            part.Play(stab, {beat, 0.2, pitch + 12.0, velocity, 0.0});
                    });
        }
    };
    play(kVerse, kVerse + 8, "..X..x....X..o..");
    play(kVerse + 8, kBreak, "..X..x..o.X..x.o");
    play(kReturn, kOutro, "..X..x..o.X..x.o");
    HighPass(part, 220.0);
    piece.Add(part, {-22.0, -16.0, -12.0});
}

void Pad(Piece& piece)
{
    SynthPatch pad = {.unison = 7,
                      .detune = 0.34,
                      .width = 1.0,
                      .amp = {0.03, 2.0, 0.9, 0.5},
                      .cutoff = 2600.0,
                      .resonance = 0.1};
    Part part(piece);
    auto const play = [&](int from, int to, double cutoffFrom, double cutoffTo, double velocity)
    {
        for (int bar = from; bar < to; ++bar)
        {
            pad.cutoff = cutoffFrom + (cutoffTo - cutoffFrom) * (bar - from) / (to - from);
            for (double const pitch : Chord(Harmony(bar).chord))
                part.Play(pad, {piece.Beat(bar), 3.9, pitch, velocity, 0.0});
        }
    };
    play(kBreak, kBuild, 700.0, 1600.0, 0.55);
    play(kBuild, kHook, 800.0, 4500.0, 0.7);
    play(kHook, kReturn, 3600.0, 4600.0, 1.0);
    HighPass(part, 200.0);
    part.GiveWay(0.8, 0.26);
    piece.Add(part, {-20.0, -16.0});
}

void Arpeggio(Piece& piece)
{
    FmPatch const pluck = {
        .ratio = 2.0, .index = 1.6, .indexDecay = 0.2, .detune = 0.08, .amp = {0.001, 0.35, 0.0, 0.1}};
    constexpr std::array<std::size_t, 12> kOrder = {0, 1, 2, 3, 2, 1, 3, 0, 2, 1, 3, 2};
    Part part(piece);
    auto const play = [&](int from, int to, double velocity)
    {
        for (int step = from * 16; step < to * 16; ++step)
        {
            // twelve steps against sixteen: the figure comes back to the bar line every third bar only
            auto const place = static_cast<std::size_t>(step % 12);
            double const pitch = Chord(Harmony(step / 16).chord)[kOrder[place]] + (place >= 6 ? 24.0 : 12.0);
            double const accent = place % 3 == 0 ? 1.0 : 0.6;
            part.Play(pluck, {0.25 * step, 0.2, pitch, velocity * accent, step % 2 == 0 ? -0.6 : 0.6});
        }
    };
    play(kVerse + 8, kBreak, 0.6);
    play(kBreak, kBuild, 0.5);
    play(kHook, kReturn, 0.8);
    play(kReturn, kOutro, 0.6);
    piece.Add(part, {-24.5, -18.0, -12.0});
}

// Short calls made of the first notes of the hook, before it is heard whole.
void Calls(Piece& piece)
{
    SynthPatch const call = {.wave = Wave::Pulse,
                             .pulseWidth = 0.25,
                             .amp = {0.003, 0.6, 0.4, 0.12},
                             .cutoff = 2200.0,
                             .resonance = 0.45,
                             .sweep = 1.5,
                             .filter = {0.002, 0.3, 0.1, 0.1}};
    Part part(piece);
    for (int bar = kVerse + 4; bar < kBreak; bar += 4)
        part.Sing(call, Line(kCall), bar, 0.0, bar < kVerse + 8 ? 0.6 : 0.9);
    for (int bar = kReturn; bar < kOutro; bar += 4)
        part.Sing(call, Line(kCall), bar, 12.0, 0.7);
    piece.Add(part, {-20.0, -16.0, -8.0});
}

void Piano(Piece& piece)
{
    FmPatch const piano = {
        .ratio = 14.0, .index = 0.35, .indexDecay = 0.25, .detune = 0.06, .amp = {0.002, 2.2, 0.0, 0.4}};
    Part part(piece);
    part.Sing(piano, Line(kPiano), kBreak, 0.0, 1.0);
    FmPatch body = piano;
    body.ratio = 1.0;
    body.index = 1.1;
    body.indexDecay = 1.2;
    part.Sing(body, Line(kPiano), kBreak, 0.0, 0.9);
    for (int bar = kBreak; bar < kBuild; ++bar)
    {
        for (double const pitch : Chord(Harmony(bar).chord))
            part.Play(body, {piece.Beat(bar), 3.8, pitch, 0.4, 0.0});
    }
    Chorus(part, 83, 0.002, 0.6);
    piece.Add(part, {-18.5, -14.0, -14.0});
}

void Hook(Piece& piece)
{
    SynthPatch lead = {.unison = 5,
                       .detune = 0.2,
                       .width = 0.6,
                       .amp = {0.004, 0.8, 0.7, 0.14},
                       .cutoff = 2600.0,
                       .resonance = 0.2,
                       .sweep = 1.5,
                       .filter = {0.003, 0.4, 0.3, 0.1},
                       .drive = 0.4,
                       .vibrato = 0.1};
    Part part(piece);
    Notes const first = Shortened(Line(kHookFirst), 0.85);
    Notes const answer = Shortened(Line(kHookAnswer), 0.85);
    part.Sing(lead, first, kHook, 0.0, 1.0);
    part.Sing(lead, answer, kHook + 8, 0.0, 1.0);
    part.Sing(lead, first, kReturn, -12.0, 0.55);
    lead.unison = 2;
    lead.width = 0.9;
    part.Sing(lead, answer, kHook + 8, 12.0, 0.35);
    HighPass(part, 200.0);
    part.GiveWay(0.25, 0.12);
    piece.Add(part, {-17.0, -17.0, -14.0});
}

void Rushes(Piece& piece)
{
    Part part(piece);
    part.Play(Rush{300.0, 9000.0, 0.0, 0.3, 0.6}, piece.Beat(kVerse - 1), 4.0);
    part.Play(Rush{8000.0, 300.0, 0.25, 0.0, 0.4}, piece.Beat(kBreak), 8.0);
    part.Play(Rush{250.0, 11000.0, 0.0, 0.35, 0.65}, piece.Beat(kBuild), 15.0);
    part.Play(Rush{9000.0, 400.0, 0.25, 0.0, 0.4}, piece.Beat(kReturn), 6.0);
    piece.Add(part, {-25.0, -18.0});
}

} // namespace

StereoLoop Electro0032()
{
    Piece piece(128.0, 4.0, kBars);
    Drums(piece);
    Acid(piece);
    Bass(piece);
    Stabs(piece);
    Pad(piece);
    Arpeggio(piece);
    Calls(piece);
    Piano(piece);
    Hook(piece);
    Rushes(piece);
    StereoLoop mix = piece.Mix({1.6, 0.012, 6000.0, 0.8, 250.0}, {0.75, 0.45, 450.0, 5500.0});
    HighShelf(mix, 3000.0, 2.5);
    LowShelf(mix, 120.0, -1.0);
    Lift(mix, 2800.0, 1.5);
    Compress(mix, -15.0);
    return mix;
}

} // namespace maker
