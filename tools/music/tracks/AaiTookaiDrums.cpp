// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The drums of "Aai_Tookai".
#include "music/Kit.h"
#include "music/tracks/AaiTookaiScore.h"

namespace maker::tookai
{

namespace
{

// A pair of hand drums: a deep one whose tone bends, and a high dry one.
void HandDrums(Piece& piece)
{
    DrumPatch const deep = {.toneHz = 92.0,
                            .fall = 0.35,
                            .fallTime = 0.09,
                            .toneDecay = 0.42,
                            .tone = 1.0,
                            .noise = 0.1,
                            .band = NoiseBand::Band,
                            .noiseHz = 700.0,
                            .noiseDecay = 0.03,
                            .pan = -0.2};
    DrumPatch bent = deep;
    bent.toneHz = 128.0;
    bent.fall = -0.45;
    bent.fallTime = 0.12;
    DrumPatch const high = {.toneHz = 310.0,
                            .fall = 0.15,
                            .fallTime = 0.01,
                            .toneDecay = 0.16,
                            .tone = 0.8,
                            .noise = 0.25,
                            .band = NoiseBand::Band,
                            .noiseHz = 2400.0,
                            .noiseDecay = 0.05,
                            .pan = 0.3};
    DrumPatch slap = high;
    slap.toneHz = 420.0;
    slap.noise = 0.6;
    slap.noiseDecay = 0.08;
    Part part(piece);
    // fourteen marks to the bar: sixteenths
    auto const play = [&](int from, int to, bool busy)
    {
        for (int bar = from; bar < to; ++bar)
        {
            bool const fill = bar % 8 == 7;
            part.Drums(bar, bar + 1, fill ? "X.......x...x." : "X.......x.....", deep);
            part.Drums(bar, bar + 1, bar % 2 == 0 ? "..........x..." : "....x.....x...", bent);
            part.Drums(bar, bar + 1, busy ? "..x.X.o.o.o.xo" : "....x.....o...", high);
            part.Drums(bar, bar + 1, fill ? "....X..o.xX.XX" : (busy ? "....X...o..o.." : "............o."),
                       slap);
        }
    };
    play(kOpening + 4, kTheme, false);
    play(kTheme, kEpisode, true);
    play(kEpisode, kQuiet, true);
    play(kQuiet + 8, kFinale, false);
    play(kFinale, kClosing, true);
    play(kClosing, kBars, false);
    piece.Add(part, {-19.0, -15.0});
}

void KickAndClaps(Piece& piece)
{
    DrumPatch kick = kDeepKick;
    kick.toneHz = 55.0;
    kick.fall = 1.6;
    kick.drive = 0.4;
    kick.toneDecay = 0.3;
    Part part(piece);
    part.Kicks(kTheme + 8, kEpisode, "X...X...x.....", kick);
    part.Kicks(kEpisode, kQuiet - 1, "X...X...X.....", kick);
    part.Kicks(kFinale, kClosing, "X...X...X...o.", kick);
    piece.Add(part, {-19.5, -34.0});

    Part claps(piece);
    claps.Drums(kEpisode, kQuiet, "....X.......x.", kHandClap);
    claps.Drums(kQuiet + 4, kFinale, "....x.........", kHandClap);
    claps.Drums(kFinale, kClosing, "....X.......x.", kHandClap);
    piece.Add(claps, {-24.0, -14.0});
}

void Rattles(Piece& piece)
{
    Part part(piece);
    DrumPatch shaker = kShaker;
    part.Drums(kOpening + 2, kQuiet, "xoxoxoxoxoxoxo", shaker);
    part.Drums(kQuiet + 8, kBars, "xoxoxoxoxoxoxo", shaker);
    shaker.noiseHz = 9500.0;
    shaker.pan = 0.35;
    part.Drums(kTheme + 8, kQuiet, "..o.x...o.x.o.", shaker);
    part.Drums(kFinale, kClosing, "..o.x...o.x.oo", shaker);
    piece.Add(part, {-26.0, -24.0});

    Part blocks(piece);
    blocks.Drums(kTheme, kEpisode, "x..o....o.x...", WoodBlock(1180.0, 0.55));
    blocks.Drums(kQuiet, kFinale, "x...x...x.....", WoodBlock(1180.0, 0.55));
    blocks.Drums(kQuiet, kFinale, "......o.....o.", WoodBlock(1570.0, -0.55));
    blocks.Drums(kFinale, kClosing, "x..o....o.x...", WoodBlock(1180.0, 0.55));
    piece.Add(blocks, {-28.0, -16.0});
}

} // namespace

void Drums(Piece& piece)
{
    HandDrums(piece);
    KickAndClaps(piece);
    Rattles(piece);
}

} // namespace maker::tookai
