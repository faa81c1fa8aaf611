// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Aai_Tookai": light, in a scale that no piano has: the overtones 8 to 16 of a low D, in pure tuning, and at
// times the same scale over G and A. Seven eighths to the bar, 2 + 2 + 3, 320 eighths a minute, 88 bars:
// thumb piano, the theme on a flute, an episode that wanders through the three roots, a quiet middle with the
// theme at half speed, and a finale in canon.
#include "music/tracks/AaiTookaiScore.h"
#include "music/tracks/Tracks.h"

namespace maker
{

using namespace tookai;

namespace
{

// The pitch of overtone 8 over a root; the roots are pure intervals above D.
double PitchOf(Root root)
{
    switch (root)
    {
    case Root::G:
        return OvertonePitch(8.0 * 4.0 / 3.0, kD4 - 12.0);
    case Root::A:
        return OvertonePitch(6.0, kD4);
    case Root::D:
        break;
    }
    return kD4;
}

double RootPitch(int bar)
{
    auto const place = static_cast<std::size_t>(bar % 8);
    return PitchOf(bar >= kEpisode && bar < kQuiet ? kEpisodeRoots[place] : kThemeRoots[place]);
}

Notes Theme(bool rising)
{
    Notes notes = OvertoneLine(kThemeFirst, kD4);
    double const g = OvertonePitch(8.0 * 4.0 / 3.0, kD4);
    for (Notes const& more : {Moved(OvertoneLine(kThemeOverG, g), 28.0),
                              Moved(OvertoneLine(rising ? kThemeRise : kThemeEnd, kD4), 42.0)})
        notes.insert(notes.end(), more.begin(), more.end());
    return notes;
}

void ThumbPiano(Piece& piece)
{
    FmPatch const tine = {
        .ratio = 6.27, .index = 0.55, .indexDecay = 0.1, .detune = 0.05, .amp = {0.001, 1.1, 0.0, 0.35}};
    Part part(piece);
    auto const play = [&](int from, int to, double velocity)
    {
        for (int bar = from; bar < to; ++bar)
        {
            std::array<double, 7> const& figure = bar % 2 == 0 ? kThumbs : kThumbsAnswer;
            for (std::size_t i = 0; i < figure.size(); ++i)
            {
                bool const weight = i == 0 || i == 2 || i == 4;
                double const pitch = OvertonePitch(figure[i], RootPitch(bar));
                part.Play(tine, {piece.Beat(bar) + static_cast<double>(i), 0.9, pitch,
                                 velocity * (weight ? 1.0 : 0.65), i % 2 == 0 ? -0.4 : 0.4});
            }
        }
    };
    play(kOpening, kTheme, 0.9);
    play(kTheme, kQuiet, 0.75);
    play(kQuiet + 8, kFinale, 0.7);
    play(kFinale, kClosing, 0.8);
    play(kClosing, kBars, 0.9);
    piece.Add(part, {-19.5, -14.0, -20.0});
}

void Bass(Piece& piece)
{
    FmPatch const bass = {
        .ratio = 1.0, .index = 1.3, .indexDecay = 0.35, .indexFloor = 0.15, .amp = {0.004, 1.4, 0.35, 0.1}};
    Part part(piece);
    auto const play = [&](int from, int to, bool busy)
    {
        for (int bar = from; bar < to; ++bar)
        {
            double const root = RootPitch(bar) - 24.0;
            double const beat = piece.Beat(bar);
            part.Play(bass, {beat, 1.7, root, 1.0, 0.0});
            part.Play(bass, {beat + 2.0, 1.6, OvertonePitch(12.0, root), 0.7, 0.0});
            part.Play(bass, {beat + 4.0, busy ? 1.4 : 2.6, root, 0.9, 0.0});
            if (busy)
                part.Play(bass, {beat + 6.0, 0.8,
                                 OvertonePitch(bar % 2 == 0 ? 14.0 : 9.0, bar % 2 == 0 ? root - 12.0 : root),
                                 0.75, 0.0});
        }
    };
    play(kOpening + 4, kTheme, false);
    play(kTheme, kQuiet, true);
    play(kQuiet + 8, kFinale, false);
    play(kFinale, kClosing, true);
    play(kClosing, kBars, false);
    part.GiveWay(0.5, 0.12);
    piece.Add(part, {-19.5});
}

// Plucked strings on the light places of the bar.
void Strings(Piece& piece)
{
    StringPatch const pluck = {.ring = 1.1, .brightness = 0.6};
    Part part(piece);
    auto const strum = [&](int bar, double at, std::initializer_list<double> overtones, double velocity)
    {
        double delay = 0.0;
        for (double const overtone : overtones)
        {
            part.Play(pluck, {piece.Beat(bar) + at + delay, 1.6, OvertonePitch(overtone, RootPitch(bar)),
                              velocity, 0.06 * (overtone - 12.0) + 0.25});
            delay += 0.045;
        }
    };
    auto const play = [&](int from, int to, double velocity)
    {
        for (int bar = from; bar < to; ++bar)
        {
            strum(bar, 1.0, {8.0, 10.0, 12.0}, velocity);
            strum(bar, 3.0, {9.0, 12.0, 14.0}, 0.8 * velocity);
            strum(bar, 5.0, {10.0, 12.0, 14.0}, velocity);
            if (bar % 4 == 3)
                strum(bar, 6.0, {14.0, 12.0, 11.0}, velocity);
        }
    };
    play(kTheme + 8, kEpisode, 0.7);
    play(kEpisode, kQuiet, 0.9);
    play(kQuiet, kFinale, 0.6);
    play(kFinale, kClosing, 0.9);
    HighPass(part, 180.0);
    piece.Add(part, {-22.0, -14.0, -20.0});
}

// Held chords of overtones; in pure tuning they stand without beating.
void Glass(Piece& piece)
{
    SynthPatch const glass = {.wave = Wave::Triangle,
                              .unison = 2,
                              .detune = 0.05,
                              .width = 0.9,
                              .breath = 0.03,
                              .amp = {0.7, 2.0, 0.8, 1.8},
                              .cutoff = 2400.0};
    Part part(piece);
    for (int bar = 0; bar < kBars; bar += 2)
    {
        bool const quiet = bar < kTheme || (bar >= kQuiet && bar < kFinale);
        for (double const overtone : {6.0, 8.0, 10.0, 14.0})
            part.Play(glass, {piece.Beat(bar), 13.5, OvertonePitch(overtone, RootPitch(bar)),
                              quiet ? 1.0 : 0.7, 0.0});
    }
    HighPass(part, 170.0);
    Chorus(part, 41, 0.0015, 0.4);
    piece.Add(part, {-25.0, -10.0});
}

SynthPatch FluteSound()
{
    return {.wave = Wave::Triangle,
            .unison = 1,
            .sub = 0.0,
            .breath = 0.14,
            .amp = {0.035, 0.8, 0.8, 0.16},
            .cutoff = 2600.0,
            .resonance = 0.1,
            .sweep = 1.2,
            .filter = {0.03, 0.25, 0.4, 0.1},
            .vibrato = 0.2,
            .vibratoRate = 5.4,
            .vibratoDelay = 0.45,
            .slideFrom = -0.5,
            .slideTime = 0.06};
}

void Flute(Piece& piece)
{
    SynthPatch const flute = FluteSound();
    Part part(piece);
    auto const play = [&](bool rising, int bar, double velocity)
    {
        Notes line = Shortened(Theme(rising), 0.93);
        for (Note& note : line)
            note.pan = -0.12;
        part.Sing(flute, line, bar, 12.0, velocity);
    };
    play(false, kTheme, 0.85);
    play(true, kTheme + 8, 1.0);
    play(false, kFinale, 0.95);
    play(true, kFinale + 8, 1.0);
    play(false, kFinale + 16, 1.0);
    piece.Add(part, {-17.5, -13.0, -18.0});
}

// The canon's second voice: the same theme a bar later in the finale, and at half speed in the quiet middle.
void SecondFlute(Piece& piece)
{
    SynthPatch flute = FluteSound();
    flute.wave = Wave::Pulse;
    flute.pulseWidth = 0.42;
    flute.cutoff = 1300.0;
    flute.breath = 0.06;
    flute.amp.attack = 0.05;
    Part part(piece);
    auto const play = [&](Notes line, int bar, double velocity)
    {
        for (Note& note : line)
            note.pan = 0.35;
        part.Sing(flute, Shortened(line, 0.95), bar, 0.0, velocity);
    };
    play(OvertoneLine(kHalfSpeed, kD4), kQuiet, 0.9);
    play(OvertoneLine(kHalfSpeed, kD4), kQuiet + 8, 1.0);
    Notes canon = OvertoneLine(kThemeFirst, kD4);
    play(canon, kFinale + 9, 0.8);
    play(canon, kFinale + 17, 0.9);
    play(OvertoneLine(kThemeFirst, kD4), kFinale + 1, 0.6);
    piece.Add(part, {-20.0, -13.0, -16.0});
}

// Quick figures of the episode, over whichever root is sounding.
void Marimba(Piece& piece)
{
    FmPatch const bar = {
        .ratio = 3.93, .index = 0.8, .indexDecay = 0.09, .detune = 0.04, .amp = {0.001, 0.55, 0.0, 0.2}};
    Part part(piece);
    auto const play = [&](int at, std::string_view text, double semitones, double velocity)
    {
        Notes line = OvertoneLine(text, RootPitch(at));
        for (std::size_t i = 0; i < line.size(); ++i)
            line[i].pan = i % 2 == 0 ? 0.15 : -0.25;
        part.Sing(bar, line, at, semitones, velocity);
    };
    for (int at = kEpisode; at < kQuiet; at += 2)
        play(at, at % 4 == 0 ? kSkips : kTurns, at < kEpisode + 8 ? 12.0 : (at % 8 < 4 ? 24.0 : 12.0), 0.9);
    for (int at = kQuiet + 12; at < kFinale; at += 2)
        play(at, kTurns, 12.0, 0.5);
    for (int at = kFinale + 16; at < kClosing; at += 2)
        play(at, at % 4 == 0 ? kSkips : kTurns, 12.0, 0.5);
    piece.Add(part, {-18.5, -15.0, -16.0});
}

void Bells(Piece& piece)
{
    FmPatch const bell = {
        .ratio = 2.76, .index = 1.1, .indexDecay = 0.7, .detune = 0.03, .amp = {0.001, 2.4, 0.0, 0.9}};
    Part part(piece);
    auto const chime = [&](int from, int to, int every)
    {
        for (int bar = from; bar < to; bar += every)
        {
            double const overtone = bar % 8 < 4 ? 14.0 : (bar % 3 == 0 ? 12.0 : 11.0);
            part.Play(bell,
                      {piece.Beat(bar), 6.0, OvertonePitch(overtone, RootPitch(bar)) + 12.0, 0.9, -0.5});
            part.Play(bell,
                      {piece.Beat(bar) + 4.0, 3.0, OvertonePitch(10.0, RootPitch(bar)) + 24.0, 0.6, 0.5});
        }
    };
    chime(kOpening, kTheme, 2);
    chime(kQuiet, kFinale, 1);
    chime(kFinale + 16, kClosing, 2);
    chime(kClosing, kBars, 2);
    piece.Add(part, {-23.0, -10.0, -14.0});
}

} // namespace

StereoLoop AaiTookai()
{
    Piece piece(320.0, 7.0, kBars);
    Drums(piece);
    ThumbPiano(piece);
    Bass(piece);
    Strings(piece);
    Glass(piece);
    Flute(piece);
    SecondFlute(piece);
    Marimba(piece);
    Bells(piece);
    StereoLoop mix = piece.Mix({1.7, 0.014, 6500.0, 0.8, 250.0}, {3.5, 0.35, 500.0, 5000.0});
    HighShelf(mix, 3500.0, 1.5);
    Lift(mix, 2800.0, 1.5);
    Compress(mix, -17.0);
    return mix;
}

} // namespace maker
