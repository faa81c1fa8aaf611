// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Sable": dark and driving. D minor with a lowered second, 140 beats a minute, 72 bars: an opening on the
// drone, the theme twice, a bridge in half time, a second theme a minor third higher, a breakdown, and the
// theme again with everything that has been heard.
#include "tracks/SablePiece.h"
#include "tracks/Tracks.h"

namespace music
{

namespace sable
{

StereoLoop SablePiece::Compose()
{
    Kick();
    Snare();
    Cymbals();
    Toms();
    Bass();
    Drone();
    Pad();
    Arpeggio();
    Lead();
    Counter();
    Bells();
    Rushes();
    StereoLoop mix = m_mixer.Finish({2.4, 0.02, 4200.0, 1.0, 220.0}, {0.75, 0.42, 400.0, 3800.0});
    HighShelf(mix, 3000.0, 3.0);
    LowShelf(mix, 150.0, -1.0);
    Bell(mix, 2800.0, 1.5);
    Compress(mix, -16.0);
    return mix;
}

std::vector<BarHarmony> SablePiece::WholeHarmony()
{
    std::vector<BarHarmony> bars;
    auto const append = [&](auto const& section)
    { bars.insert(bars.end(), std::begin(section), std::end(section)); };
    append(kOpeningHarmony);
    append(kThemeHarmony);
    append(kThemeHarmony);
    append(kBridgeHarmony);
    append(kSecondHarmony);
    append(kBreakdownHarmony);
    append(kThemeHarmony);
    append(kThemeHarmony);
    return bars;
}

void SablePiece::Bass()
{
    SynthPatch bass;
    bass.unison = 2;
    bass.detune = 0.12;
    bass.width = 0.15;
    bass.sub = 0.0;
    bass.amp = {0.002, 0.6, 0.7, 0.05};
    bass.cutoff = 260.0;
    bass.resonance = 0.35;
    bass.sweep = 3.0;
    bass.filter = {0.001, 0.35, 0.1, 0.05};
    bass.keyFollow = 0.2;
    bass.drive = 1.6;
    StereoLoop part = m_mixer.NewPart();
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
                    Play(bass, {Beat(bar) + step, 0.22, pitch, level * (mark == 'X' ? 1.0 : 0.8), 0.0},
                         m_tempo, part);
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
    GiveWay(part, 0.75, 0.11);
    m_mixer.Add(part, {-17.0, -40.0});

    // a clean sine under it keeps the lowest octave even, whatever the filter does
    SynthPatch sub;
    sub.wave = Wave::Sine;
    sub.amp = {0.01, 1.0, 1.0, 0.08};
    sub.cutoff = 500.0;
    StereoLoop deep = m_mixer.NewPart();
    for (int bar = 0; bar < kBars; ++bar)
    {
        bool const silent = bar >= kBreakdown && bar < kBreakdown + 4;
        double const level = bar < kTheme || (bar > kBreakdown && bar < kFinale) ? 0.6 : 1.0;
        if (!silent)
            Play(sub, {Beat(bar), 3.95, PitchOf(Harmony(bar).root), level, 0.0}, m_tempo, deep);
    }
    GiveWay(deep, 0.85, 0.16);
    m_mixer.Add(deep, {-24.0});
}

void SablePiece::Drone()
{
    SynthPatch drone;
    drone.unison = 5;
    drone.detune = 0.25;
    drone.width = 0.9;
    drone.amp = {2.0, 1.0, 1.0, 3.0};
    drone.cutoff = 180.0;
    drone.resonance = 0.45;
    drone.sweep = 3.2;
    drone.filter = {9.0, 6.0, 0.2, 4.0};
    StereoLoop part = m_mixer.NewPart();
    for (int const bar : {kOpening, kBreakdown})
    {
        for (double const pitch : Chord("D2 A2 D3"))
            Play(drone, {Beat(bar), 30.0, pitch, 1.0, 0.0}, m_tempo, part);
    }
    HighPass(part, 90.0);
    GiveWay(part, 0.5, 0.2);
    m_mixer.Add(part, {-23.0, -14.0});
}

void SablePiece::Pad()
{
    SynthPatch pad;
    pad.unison = 5;
    pad.detune = 0.28;
    pad.width = 1.0;
    pad.breath = 0.05;
    pad.amp = {0.25, 2.0, 0.85, 1.1};
    pad.cutoff = 900.0;
    pad.resonance = 0.15;
    pad.sweep = 1.2;
    pad.filter = {0.9, 2.0, 0.4, 1.0};
    StereoLoop part = m_mixer.NewPart();
    for (int bar = 0; bar < kBars; ++bar)
    {
        double const velocity = bar >= kBridge && bar < kSecond ? 1.0 : (bar < kTheme ? 0.6 : 0.75);
        for (double const pitch : Chord(Harmony(bar).chord))
            Play(pad, {Beat(bar), 4.0, pitch, velocity, 0.0}, m_tempo, part);
    }
    HighPass(part, 180.0);
    Chorus(part, 61, 0.003, 0.5);
    GiveWay(part, 0.6, 0.2);
    m_mixer.Add(part, {-23.5, -12.0});
}

void SablePiece::Arpeggio()
{
    SynthPatch pulse;
    pulse.wave = Wave::Pulse;
    pulse.pulseWidth = 0.32;
    pulse.unison = 2;
    pulse.detune = 0.14;
    pulse.width = 0.3;
    pulse.amp = {0.002, 0.25, 0.0, 0.08};
    pulse.cutoff = 1300.0;
    pulse.resonance = 0.3;
    pulse.sweep = 2.0;
    pulse.filter = {0.001, 0.16, 0.0, 0.08};
    constexpr int kOrder[] = {0, 2, 1, 3, 2, 1, 3, 2, 0, 3, 1, 2, 3, 1, 2, 0};
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](int from, int to, double octave, double velocity)
    {
        for (int step = from * 16; step < to * 16; ++step)
        {
            std::vector<double> const chord = Chord(Harmony(step / 16).chord);
            double const pitch = chord[static_cast<std::size_t>(kOrder[step % 16])] + octave;
            double const accent = step % 3 == 0 ? 1.0 : 0.65;
            Play(pulse, {0.25 * step, 0.2, pitch, velocity * accent, step % 2 == 0 ? -0.5 : 0.5}, m_tempo,
                 part);
        }
    };
    play(kOpening + 4, kTheme, 0.0, 0.5);
    play(kTheme + 8, kBridge, 12.0, 0.6);
    play(kSecond, kBreakdown, 12.0, 0.9);
    play(kBreakdown + 2, kFinale, 12.0, 0.6);
    play(kFinale, kBars, 12.0, 0.9);
    HighPass(part, 250.0);
    GiveWay(part, 0.45, 0.15);
    m_mixer.Add(part, {-24.0, -18.0, -9.0});
}

void SablePiece::Lead()
{
    SynthPatch lead;
    lead.unison = 3;
    lead.detune = 0.16;
    lead.width = 0.45;
    lead.amp = {0.012, 1.2, 0.8, 0.22};
    lead.cutoff = 1500.0;
    lead.resonance = 0.25;
    lead.sweep = 1.6;
    lead.filter = {0.02, 0.9, 0.45, 0.2};
    lead.drive = 0.7;
    lead.vibrato = 0.18;
    lead.slideFrom = -0.6;
    lead.slideTime = 0.05;
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](std::string_view text, int bar, double octave, double velocity)
    { Sing(lead, Shortened(Line(text), 0.94), bar, octave, velocity, part); };
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
    m_mixer.Add(part, {-17.5, -17.0, -14.0});
}

void SablePiece::Counter()
{
    SynthPatch strings;
    strings.unison = 6;
    strings.detune = 0.22;
    strings.width = 0.8;
    strings.amp = {0.09, 1.0, 0.9, 0.4};
    strings.cutoff = 1900.0;
    strings.resonance = 0.05;
    strings.vibrato = 0.12;
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](int bar, double octave, double velocity)
    { Sing(strings, Line(kCounter), bar, octave, velocity, part); };
    play(kTheme + 8, 0.0, 0.8);
    play(kFinale, 0.0, 0.9);
    play(kFinale + 8, 0.0, 1.0);
    play(kFinale + 8, 12.0, 0.6);
    HighPass(part, 200.0);
    GiveWay(part, 0.3, 0.15);
    m_mixer.Add(part, {-23.0, -12.0});
}

void SablePiece::Bells()
{
    FmPatch bell;
    bell.ratio = 3.5;
    bell.index = 2.2;
    bell.indexDecay = 1.4;
    bell.indexFloor = 0.08;
    bell.detune = 0.07;
    bell.amp = {0.001, 2.6, 0.0, 1.0};
    StereoLoop part = m_mixer.NewPart();
    auto const play = [&](int bar, double velocity)
    {
        Notes notes = Moved(Line(kBellLine), Beat(bar), 0.0, velocity);
        for (std::size_t i = 0; i < notes.size(); ++i)
            notes[i].pan = i % 2 == 0 ? -0.35 : 0.35;
        PlayAll(bell, notes, m_tempo, part);
    };
    play(kBridge, 1.0);
    play(kBreakdown, 0.55);
    m_mixer.Add(part, {-20.5, -10.0, -10.0});
}

void SablePiece::Rushes()
{
    StereoLoop part = m_mixer.NewPart();
    Rush const rise{250.0, 7000.0, 0.0, 0.3, 0.55};
    Rush const fade{6000.0, 300.0, 0.22, 0.0, 0.4};
    Play(rise, Beat(kTheme - 2), 8.0, m_tempo, part);
    Play(rise, Beat(kSecond - 2), 8.0, m_tempo, part);
    Play(rise, Beat(kFinale - 4), 16.0, m_tempo, part);
    Play(fade, Beat(kBridge), 8.0, m_tempo, part);
    Play(fade, Beat(kBreakdown), 8.0, m_tempo, part);
    m_mixer.Add(part, {-27.0, -16.0});
}

} // namespace sable

StereoLoop Sable()
{
    return sable::SablePiece().Compose();
}

} // namespace music
