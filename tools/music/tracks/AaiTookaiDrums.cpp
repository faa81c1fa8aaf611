// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The drums of "Aai_Tookai".
#include "tracks/AaiTookaiPiece.h"

namespace music::tookai
{

void AaiTookaiPiece::HandDrums()
{
    DrumPatch deep;
    deep.toneHz = 92.0;
    deep.fall = 0.35;
    deep.fallTime = 0.09;
    deep.toneDecay = 0.42;
    deep.tone = 1.0;
    deep.noise = 0.1;
    deep.band = NoiseBand::Band;
    deep.noiseHz = 700.0;
    deep.noiseDecay = 0.03;
    deep.pan = -0.2;
    DrumPatch bent = deep;
    bent.toneHz = 128.0;
    bent.fall = -0.45;
    bent.fallTime = 0.12;
    DrumPatch high;
    high.toneHz = 310.0;
    high.fall = 0.15;
    high.fallTime = 0.01;
    high.toneDecay = 0.16;
    high.tone = 0.8;
    high.noise = 0.25;
    high.band = NoiseBand::Band;
    high.noiseHz = 2400.0;
    high.noiseDecay = 0.05;
    high.pan = 0.3;
    DrumPatch slap = high;
    slap.toneHz = 420.0;
    slap.noise = 0.6;
    slap.noiseDecay = 0.08;
    StereoLoop part = m_mixer.NewPart();
    // fourteen marks to the bar: sixteenths
    auto const play = [&](int from, int to, bool busy)
    {
        for (int bar = from; bar < to; ++bar)
        {
            bool const fill = bar % 8 == 7;
            Drums(bar, bar + 1, fill ? "X.......x...x." : "X.......x.....", deep, part);
            Drums(bar, bar + 1, bar % 2 == 0 ? "..........x..." : "....x.....x...", bent, part);
            Drums(bar, bar + 1, busy ? "..x.X.o.o.o.xo" : "....x.....o...", high, part);
            Drums(bar, bar + 1, fill ? "....X..o.xX.XX" : (busy ? "....X...o..o.." : "............o."), slap,
                  part);
        }
    };
    play(kOpening + 4, kTheme, false);
    play(kTheme, kEpisode, true);
    play(kEpisode, kQuiet, true);
    play(kQuiet + 8, kFinale, false);
    play(kFinale, kClosing, true);
    play(kClosing, kBars, false);
    m_mixer.Add(part, {-19.0, -15.0});
}

void AaiTookaiPiece::KickAndClaps()
{
    DrumPatch kick = DeepKick();
    kick.toneHz = 55.0;
    kick.fall = 1.6;
    kick.drive = 0.4;
    kick.toneDecay = 0.3;
    StereoLoop part = m_mixer.NewPart();
    Kicks(kTheme + 8, kEpisode, "X...X...x.....", kick, part);
    Kicks(kEpisode, kQuiet - 1, "X...X...X.....", kick, part);
    Kicks(kFinale, kClosing, "X...X...X...o.", kick, part);
    m_mixer.Add(part, {-19.5, -34.0});

    StereoLoop claps = m_mixer.NewPart();
    Drums(kEpisode, kQuiet, "....X.......x.", HandClap(), claps);
    Drums(kQuiet + 4, kFinale, "....x.........", HandClap(), claps);
    Drums(kFinale, kClosing, "....X.......x.", HandClap(), claps);
    m_mixer.Add(claps, {-24.0, -14.0});
}

void AaiTookaiPiece::Rattles()
{
    StereoLoop part = m_mixer.NewPart();
    DrumPatch shaker = Shaker();
    Drums(kOpening + 2, kQuiet, "xoxoxoxoxoxoxo", shaker, part);
    Drums(kQuiet + 8, kBars, "xoxoxoxoxoxoxo", shaker, part);
    shaker.noiseHz = 9500.0;
    shaker.pan = 0.35;
    Drums(kTheme + 8, kQuiet, "..o.x...o.x.o.", shaker, part);
    Drums(kFinale, kClosing, "..o.x...o.x.oo", shaker, part);
    m_mixer.Add(part, {-26.0, -24.0});

    StereoLoop blocks = m_mixer.NewPart();
    Drums(kTheme, kEpisode, "x..o....o.x...", WoodBlock(1180.0, 0.55), blocks);
    Drums(kQuiet, kFinale, "x...x...x.....", WoodBlock(1180.0, 0.55), blocks);
    Drums(kQuiet, kFinale, "......o.....o.", WoodBlock(1570.0, -0.55), blocks);
    Drums(kFinale, kClosing, "x..o....o.x...", WoodBlock(1180.0, 0.55), blocks);
    m_mixer.Add(blocks, {-28.0, -16.0});
}

} // namespace music::tookai
