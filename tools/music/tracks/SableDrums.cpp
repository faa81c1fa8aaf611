// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The drums of "Sable".
#include "music/Kit.h"
#include "music/tracks/SableScore.h"

namespace maker::sable
{

namespace
{

void Kick(Piece& piece)
{
    DrumPatch const kick = kDeepKick;
    Part part(piece);
    auto const play = [&](int from, int to, std::string_view marks) { part.Kicks(from, to, marks, kick); };
    play(kOpening, kOpening + 4, "x.......x.......");
    play(kOpening + 4, kOpening + 7, "x...x...x...x...");
    play(kOpening + 7, kTheme, "X...X...X.X.X...");
    for (int bar = kTheme; bar < kBridge; bar += 4)
    {
        play(bar, bar + 3, "X...X...X...X...");
        play(bar + 3, bar + 4, "X...X...X..xX.x.");
    }
    play(kBridge, kSecond - 1, "X.........x.....");
    play(kSecond - 1, kSecond, "X.....x...x...x.");
    play(kSecond, kBreakdown, "X...X...X...X..x");
    play(kBreakdown + 4, kBreakdown + 6, "X.......X.......");
    play(kBreakdown + 6, kFinale - 1, "X...X...X...X...");
    for (int bar = kFinale; bar < kBars; bar += 2)
    {
        play(bar, bar + 1, "X...X...X...X...");
        play(bar + 1, bar + 2, "X...X..xX...X.x.");
    }
    piece.Add(part, {-15.5, -34.0});
}

void Snare(Piece& piece)
{
    DrumPatch const snare = kFullSnare;
    Part part(piece);
    for (int bar = kTheme; bar < kBridge; bar += 8)
    {
        part.Drums(bar, bar + 7, "....X.......X...", snare);
        part.Drums(bar + 7, bar + 8, "....X..o..o.XoxX", snare);
    }
    part.Drums(kBridge, kSecond - 1, "........X.......", snare);
    part.Drums(kSecond - 1, kSecond, "........X.o.xxXX", snare);
    part.Drums(kSecond, kBreakdown - 1, "....X..o.o..X...", snare);
    part.Drums(kBreakdown - 1, kBreakdown, "....X...X.X.XXXX", snare);
    part.Drums(kFinale - 2, kFinale - 1, "o.o.o.o.o.o.o.o.", snare);
    part.Drums(kFinale - 1, kFinale, "ooooooooxxxxXXXX", snare);
    for (int bar = kFinale; bar < kBars; bar += 4)
    {
        part.Drums(bar, bar + 3, "....X..o.o..X...", snare);
        part.Drums(bar + 3, bar + 4, "....X..o.oo.XoxX", snare);
    }
    piece.Add(part, {-19.5, -13.0});
}

void Cymbals(Piece& piece)
{
    DrumPatch const closed = kClosedHat;
    DrumPatch const open = kOpenHat;
    Part hats(piece);
    hats.Drums(kOpening + 4, kTheme, "..o...o...o...o.", closed);
    hats.Drums(kTheme, kTheme + 8, "oo.ooo.ooo.ooo.o", closed);
    hats.Drums(kTheme, kTheme + 8, "..x...x...x...x.", open);
    hats.Drums(kTheme + 8, kBridge, "xoxoxoxoxoxoxoxo", closed);
    hats.Drums(kTheme + 8, kBridge, "..x...x...x...x.", open);
    hats.Drums(kBridge, kSecond, "o.o.o.oox.o.o.o.", closed);
    hats.Drums(kSecond, kBreakdown, "xo.oxo.oxo.oxo.o", closed);
    hats.Drums(kSecond, kBreakdown, "..x...x...x...x.", open);
    hats.Drums(kBreakdown + 4, kFinale, "o.o.o.o.o.o.o.o.", closed);
    hats.Drums(kFinale, kBars, "xoxoxoxoxoxoxoxo", closed);
    hats.Drums(kFinale, kBars, "..X...X...X...X.", open);
    piece.Add(hats, {-27.5, -24.0});

    Part crashes(piece);
    for (int const bar :
         {kOpening, kTheme, kTheme + 8, kBridge, kSecond, kSecond + 8, kBreakdown, kFinale, kFinale + 8})
        crashes.Hit(kCrash, piece.Beat(bar), 1.0);
    piece.Add(crashes, {-25.0, -16.0});
}

void Toms(Piece& piece)
{
    Part part(piece);
    auto const drum = [&](double hertz, double pan, int from, int to, std::string_view marks)
    { part.Drums(from, to, marks, Tom(hertz, pan)); };
    for (int const bar : {kTheme - 1, kTheme + 7, kBridge - 1, kSecond + 7, kFinale + 7, kBars - 1})
    {
        drum(150.0, -0.4, bar, bar + 1, "........x.x.....");
        drum(110.0, 0.1, bar, bar + 1, "..........oxx...");
        drum(82.0, 0.4, bar, bar + 1, ".............xXx");
    }
    drum(110.0, -0.3, kBridge, kSecond, "...x..o.....x...");
    drum(82.0, 0.3, kBridge, kSecond, "......x......ox.");
    drum(82.0, 0.3, kBreakdown, kBreakdown + 6, "x..x......x.....");
    drum(110.0, -0.3, kBreakdown, kBreakdown + 6, "......o.x....o..");
    piece.Add(part, {-20.0, -14.0});
}

} // namespace

void Drums(Piece& piece)
{
    Kick(piece);
    Snare(piece);
    Cymbals(piece);
    Toms(piece);
}

} // namespace maker::sable
