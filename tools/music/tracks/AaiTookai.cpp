// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Aai_Tookai": light, in a scale that no piano has: the overtones 8 to 16 of a low D, in pure tuning, and at
// times the same scale over G and A. Seven eighths to the bar, 2 + 2 + 3, 320 eighths a minute, 88 bars:
// thumb piano, the theme on a flute, an episode that wanders through the three roots, a quiet middle with the
// theme at half speed, and a finale in canon.
#include "tracks/AaiTookaiPiece.h"
#include "tracks/Tracks.h"

namespace music
{

namespace tookai
{

StereoLoop AaiTookaiPiece::Compose()
{
    HandDrums();
    KickAndClaps();
    Rattles();
    ThumbPiano();
    Bass();
    Strings();
    Glass();
    Flute();
    SecondFlute();
    Marimba();
    Bells();
    StereoLoop mix = m_mixer.Finish({1.7, 0.014, 6500.0, 0.8, 250.0}, {3.5, 0.35, 500.0, 5000.0});
    HighShelf(mix, 3500.0, 1.5);
    Bell(mix, 2800.0, 1.5);
    Compress(mix, -17.0);
    return mix;
}

// A pair of hand drums: a deep one whose tone bends, and a high dry one.

void AaiTookaiPiece::ThumbPiano()
{
    FmPatch tine;
    tine.ratio = 6.27;
    tine.index = 0.55;
    tine.indexDecay = 0.1;
    tine.detune = 0.05;
    tine.amp = {0.001, 1.1, 0.0, 0.35};
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](int from, int to, double velocity)
    {
        for (int bar = from; bar < to; ++bar)
        {
            std::array<double, 7> const& figure = bar % 2 == 0 ? kThumbs : kThumbsAnswer;
            for (std::size_t i = 0; i < figure.size(); ++i)
            {
                bool const weight = i == 0 || i == 2 || i == 4;
                double const pitch = OvertonePitch(figure[i], RootPitch(bar));
                Play(tine,
                     {Beat(bar) + static_cast<double>(i), 0.9, pitch, velocity * (weight ? 1.0 : 0.65),
                      i % 2 == 0 ? -0.4 : 0.4},
                     m_tempo, part);
            }
        }
    };
    play(kOpening, kTheme, 0.9);
    play(kTheme, kQuiet, 0.75);
    play(kQuiet + 8, kFinale, 0.7);
    play(kFinale, kClosing, 0.8);
    play(kClosing, kBars, 0.9);
    m_mixer.Add(part, {-19.5, -14.0, -20.0});
}

void AaiTookaiPiece::Bass()
{
    FmPatch bass;
    bass.ratio = 1.0;
    bass.index = 1.3;
    bass.indexDecay = 0.35;
    bass.indexFloor = 0.15;
    bass.amp = {0.004, 1.4, 0.35, 0.1};
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](int from, int to, bool busy)
    {
        for (int bar = from; bar < to; ++bar)
        {
            double const root = RootPitch(bar) - 24.0;
            double const beat = Beat(bar);
            Play(bass, {beat, 1.7, root, 1.0, 0.0}, m_tempo, part);
            Play(bass, {beat + 2.0, 1.6, OvertonePitch(12.0, root), 0.7, 0.0}, m_tempo, part);
            Play(bass, {beat + 4.0, busy ? 1.4 : 2.6, root, 0.9, 0.0}, m_tempo, part);
            if (busy)
                Play(bass,
                     {beat + 6.0, 0.8,
                      OvertonePitch(bar % 2 == 0 ? 14.0 : 9.0, bar % 2 == 0 ? root - 12.0 : root), 0.75, 0.0},
                     m_tempo, part);
        }
    };
    play(kOpening + 4, kTheme, false);
    play(kTheme, kQuiet, true);
    play(kQuiet + 8, kFinale, false);
    play(kFinale, kClosing, true);
    play(kClosing, kBars, false);
    GiveWay(part, 0.5, 0.12);
    m_mixer.Add(part, {-19.5});
}

// Plucked strings on the light places of the bar.

void AaiTookaiPiece::Strings()
{
    StringPatch pluck;
    pluck.ring = 1.1;
    pluck.brightness = 0.6;
    StereoLoop part = m_mixer.NewPart();
    auto const strum = [&](int bar, double at, std::initializer_list<double> overtones, double velocity)
    {
        double delay = 0.0;
        for (double const overtone : overtones)
        {
            Play(pluck,
                 {Beat(bar) + at + delay, 1.6, OvertonePitch(overtone, RootPitch(bar)), velocity,
                  0.06 * (overtone - 12.0) + 0.25},
                 m_tempo, part);
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
    m_mixer.Add(part, {-22.0, -14.0, -20.0});
}

// Held chords of overtones; in pure tuning they stand without beating.

void AaiTookaiPiece::Glass()
{
    SynthPatch glass;
    glass.wave = Wave::Triangle;
    glass.unison = 2;
    glass.detune = 0.05;
    glass.width = 0.9;
    glass.breath = 0.03;
    glass.amp = {0.7, 2.0, 0.8, 1.8};
    glass.cutoff = 2400.0;
    StereoLoop part = m_mixer.NewPart();
    for (int bar = 0; bar < kBars; bar += 2)
    {
        bool const quiet = bar < kTheme || (bar >= kQuiet && bar < kFinale);
        for (double const overtone : {6.0, 8.0, 10.0, 14.0})
            Play(glass, {Beat(bar), 13.5, OvertonePitch(overtone, RootPitch(bar)), quiet ? 1.0 : 0.7, 0.0},
                 m_tempo, part);
    }
    HighPass(part, 170.0);
    Chorus(part, 41, 0.0015, 0.4);
    m_mixer.Add(part, {-25.0, -10.0});
}

static SynthPatch FluteSound()
{
    SynthPatch flute;
    flute.wave = Wave::Triangle;
    flute.unison = 1;
    flute.sub = 0.0;
    flute.breath = 0.14;
    flute.amp = {0.035, 0.8, 0.8, 0.16};
    flute.cutoff = 2600.0;
    flute.resonance = 0.1;
    flute.sweep = 1.2;
    flute.filter = {0.03, 0.25, 0.4, 0.1};
    flute.vibrato = 0.2;
    flute.vibratoRate = 5.4;
    flute.vibratoDelay = 0.45;
    flute.slideFrom = -0.5;
    flute.slideTime = 0.06;
    return flute;
}

void AaiTookaiPiece::Flute()
{
    SynthPatch const flute = FluteSound();
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](bool rising, int bar, double velocity)
    {
        Notes line = Shortened(Theme(rising), 0.93);
        for (Note& note : line)
            note.pan = -0.12;
        Sing(flute, line, bar, 12.0, velocity, part);
    };
    play(false, kTheme, 0.85);
    play(true, kTheme + 8, 1.0);
    play(false, kFinale, 0.95);
    play(true, kFinale + 8, 1.0);
    play(false, kFinale + 16, 1.0);
    m_mixer.Add(part, {-17.5, -13.0, -18.0});
}

// The canon's second voice: the same theme a bar later in the finale, and at half speed in the quiet middle.

void AaiTookaiPiece::SecondFlute()
{
    SynthPatch flute = FluteSound();
    flute.wave = Wave::Pulse;
    flute.pulseWidth = 0.42;
    flute.cutoff = 1300.0;
    flute.breath = 0.06;
    flute.amp.attack = 0.05;
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](Notes line, int bar, double velocity)
    {
        for (Note& note : line)
            note.pan = 0.35;
        Sing(flute, Shortened(line, 0.95), bar, 0.0, velocity, part);
    };
    play(OvertoneLine(kHalfSpeed, kD4), kQuiet, 0.9);
    play(OvertoneLine(kHalfSpeed, kD4), kQuiet + 8, 1.0);
    Notes canon = OvertoneLine(kThemeFirst, kD4);
    play(canon, kFinale + 9, 0.8);
    play(canon, kFinale + 17, 0.9);
    play(OvertoneLine(kThemeFirst, kD4), kFinale + 1, 0.6);
    m_mixer.Add(part, {-20.0, -13.0, -16.0});
}

// Quick figures of the episode, over whichever root is sounding.

void AaiTookaiPiece::Marimba()
{
    FmPatch bar;
    bar.ratio = 3.93;
    bar.index = 0.8;
    bar.indexDecay = 0.09;
    bar.detune = 0.04;
    bar.amp = {0.001, 0.55, 0.0, 0.2};
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](int at, std::string_view text, double semitones, double velocity)
    {
        Notes line = OvertoneLine(text, RootPitch(at));
        for (std::size_t i = 0; i < line.size(); ++i)
            line[i].pan = i % 2 == 0 ? 0.15 : -0.25;
        Sing(bar, line, at, semitones, velocity, part);
    };
    for (int at = kEpisode; at < kQuiet; at += 2)
        play(at, at % 4 == 0 ? kSkips : kTurns, at < kEpisode + 8 ? 12.0 : (at % 8 < 4 ? 24.0 : 12.0), 0.9);
    for (int at = kQuiet + 12; at < kFinale; at += 2)
        play(at, kTurns, 12.0, 0.5);
    for (int at = kFinale + 16; at < kClosing; at += 2)
        play(at, at % 4 == 0 ? kSkips : kTurns, 12.0, 0.5);
    m_mixer.Add(part, {-18.5, -15.0, -16.0});
}

void AaiTookaiPiece::Bells()
{
    FmPatch bell;
    bell.ratio = 2.76;
    bell.index = 1.1;
    bell.indexDecay = 0.7;
    bell.detune = 0.03;
    bell.amp = {0.001, 2.4, 0.0, 0.9};
    StereoLoop part = m_mixer.NewPart();
    auto const chime = [&](int from, int to, int every)
    {
        for (int bar = from; bar < to; bar += every)
        {
            double const overtone = bar % 8 < 4 ? 14.0 : (bar % 3 == 0 ? 12.0 : 11.0);
            Play(bell, {Beat(bar), 6.0, OvertonePitch(overtone, RootPitch(bar)) + 12.0, 0.9, -0.5}, m_tempo,
                 part);
            Play(bell, {Beat(bar) + 4.0, 3.0, OvertonePitch(10.0, RootPitch(bar)) + 24.0, 0.6, 0.5}, m_tempo,
                 part);
        }
    };
    chime(kOpening, kTheme, 2);
    chime(kQuiet, kFinale, 1);
    chime(kFinale + 16, kClosing, 2);
    chime(kClosing, kBars, 2);
    m_mixer.Add(part, {-23.0, -10.0, -14.0});
}

} // namespace tookai

StereoLoop AaiTookai()
{
    return tookai::AaiTookaiPiece().Compose();
}

} // namespace music
