// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The drums of "Electro0032".
#include "music/Kit.h"
#include "music/tracks/Electro0032Score.h"

namespace maker::electro
{

namespace
{

void Kick(Piece& piece)
{
    DrumPatch kick = kDeepKick;
    kick.toneHz = 46.0;
    kick.toneDecay = 0.55;
    kick.drive = 0.9;
    Part part(piece);
    for (int bar = kIntro + 2; bar < kBreak; bar += 2)
    {
        part.Kicks(bar, bar + 1, "X.....x...X..x..", kick);
        part.Kicks(bar + 1, bar + 2, bar + 2 == kBreak ? "X.....x.X..X..X." : "X..x..x...X...x.", kick);
    }
    part.Kicks(kBreak + 4, kBuild, "X...............", kick);
    part.Kicks(kBuild, kBuild + 2, "X...X...X...X...", kick);
    part.Kicks(kBuild + 2, kHook - 1, "X.X.X.X.X.X.X.X.", kick);
    kick.toneDecay = 0.38;
    kick.drive = 1.5;
    for (int bar = kHook; bar < kReturn; bar += 4)
    {
        part.Kicks(bar, bar + 3, "X...X...X...X...", kick);
        part.Kicks(bar + 3, bar + 4, "X...X...X...X.x.", kick);
    }
    for (int bar = kReturn; bar < kBars; bar += 2)
    {
        part.Kicks(bar, bar + 1, "X.....x...X..x..", kick);
        part.Kicks(bar + 1, bar + 2, "X..x..x...X...x.", kick);
    }
    piece.Add(part, {-15.5, -36.0});
}

void SnareAndClap(Piece& piece)
{
    DrumPatch snare = kFullSnare;
    snare.toneHz = 205.0;
    snare.noiseDecay = 0.18;
    DrumPatch const clap = kHandClap;
    Part part(piece);
    part.Drums(kIntro + 4, kBreak, "....X.......X...", snare);
    part.Drums(kVerse + 8, kBreak, ".......o.o......", snare);
    part.Drums(kVerse, kBreak, "............x...", clap);
    part.Drums(kBreak + 4, kBuild, "........x.......", clap);
    part.Drums(kBuild, kBuild + 2, "x...x...x...x...", snare);
    part.Drums(kBuild + 2, kBuild + 3, "x.x.x.x.x.x.x.x.", snare);
    part.Drums(kBuild + 3, kHook, "ooooxxxxxxXXX...", snare);
    part.Drums(kHook, kReturn, "....X.......X...", clap);
    part.Drums(kHook, kReturn, "....x.......x...", snare);
    part.Drums(kReturn - 1, kReturn, ".............xXX", snare);
    part.Drums(kReturn, kOutro, "....X..o.o..X...", snare);
    part.Drums(kReturn, kOutro, "............x..o", clap);
    part.Drums(kOutro, kBars, "....X.......X..o", snare);
    piece.Add(part, {-18.5, -15.0});
}

void Hats(Piece& piece)
{
    DrumPatch closed = kClosedHat;
    closed.metalHz = 610.0;
    DrumPatch const open = kOpenHat;
    Part part(piece);
    part.Drums(kIntro, kVerse, "..o...o...o...o.", closed);
    part.Drums(kVerse, kBreak, "xoxoxooxxoxoxoxx", closed);
    part.Drums(kVerse, kBreak, "..........x.....", open);
    part.Drums(kBreak, kBuild, "..o...o...o...oo", closed);
    part.Drums(kBuild, kHook, "o.o.o.o.o.o.o.o.", closed);
    part.Drums(kHook, kReturn, "oo.ooo.ooo.ooo.o", closed);
    part.Drums(kHook, kReturn, "..X...X...X...X.", open);
    part.Drums(kReturn, kOutro, "xoxoxooxxoxoxoxx", closed);
    part.Drums(kReturn, kOutro, "..x.......x...x.", open);
    part.Drums(kOutro, kBars, "..o...o...o...o.", closed);
    piece.Add(part, {-26.0, -26.0});

    Part crashes(piece);
    for (int const bar : {kVerse, kVerse + 8, kBreak, kHook, kHook + 8, kReturn})
        crashes.Hit(kCrash, piece.Beat(bar), 1.0);
    piece.Add(crashes, {-24.0, -18.0});
}

// Small pitched clicks that answer the beat from the sides.
void Blips(Piece& piece)
{
    Part part(piece);
    auto const play = [&](int from, int to)
    {
        part.Drums(from, to, "...x......x..x..", WoodBlock(880.0, -0.7));
        part.Drums(from, to, "......o..x.....o", WoodBlock(1320.0, 0.7));
    };
    play(kVerse, kBreak);
    play(kReturn, kBars);
    piece.Add(part, {-27.0, -20.0, -10.0});
}

} // namespace

void Drums(Piece& piece)
{
    Kick(piece);
    SnareAndClap(piece);
    Hats(piece);
    Blips(piece);
}

} // namespace maker::electro
