// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The drums of "SerialK".
#include "music/Kit.h"
#include "music/tracks/SerialKScore.h"

namespace maker::serial
{

namespace
{

void Kick(Piece& piece)
{
    DrumPatch kick = kDeepKick;
    kick.toneHz = 52.0;
    kick.toneDecay = 0.28;
    kick.drive = 2.2;
    Part part(piece);
    part.Kicks(kAssembly + 4, kAssembly + 8, "X...........", kick);
    part.Kicks(kAssembly + 8, kRun, "X.....x.....", kick);
    for (int bar = kRun; bar < kClock; bar += 4)
    {
        part.Kicks(bar, bar + 3, "X..o..X...x.", kick);
        part.Kicks(bar + 3, bar + 4, "X..x..X.x.x.", kick);
    }
    part.Kicks(kClock + 4, kPress, "X...........", kick);
    part.Kicks(kPress, kFull - 1, "X.....x.....", kick);
    part.Kicks(kFull - 1, kFull, "X..X..X.X.X.", kick);
    for (int bar = kFull; bar < kApart; bar += 2)
    {
        part.Kicks(bar, bar + 1, "X..x..X..x..", kick);
        part.Kicks(bar + 1, bar + 2, "X..x..X.x.x.", kick);
    }
    part.Kicks(kApart, kApart + 4, "X.....x.....", kick);
    part.Kicks(kApart + 4, kBars - 1, "X...........", kick);
    piece.Add(part, {-16.0, -32.0});
}

void Snare(Piece& piece)
{
    DrumPatch snare = kFullSnare;
    snare.toneHz = 230.0;
    snare.noiseHz = 3600.0;
    snare.noiseDecay = 0.14;
    snare.metal = 0.12;
    snare.metalHz = 780.0;
    snare.metalCut = 2500.0;
    snare.metalDecay = 0.2;
    Part part(piece);
    for (int bar = kRun; bar < kClock; bar += 4)
    {
        part.Drums(bar, bar + 3, "...X....X...", snare);
        part.Drums(bar + 3, bar + 4, "...X..o.X.xx", snare);
    }
    part.Drums(kPress, kFull - 1, "......X.....", snare);
    part.Drums(kFull - 1, kFull, "x..x..xxXXXX", snare);
    for (int bar = kFull; bar < kApart; bar += 4)
    {
        part.Drums(bar, bar + 3, "...X.o..X.o.", snare);
        part.Drums(bar + 3, bar + 4, "...X.oo.XxXX", snare);
    }
    part.Drums(kApart, kApart + 4, "...x....x...", snare);
    piece.Add(part, {-19.5, -15.0});
}

// Anvils and steam, each in a cycle of its own that does not fit the bar.
void Machinery(Piece& piece)
{
    Part part(piece);
    DrumPatch const steam = {.noise = 0.5,
                             .band = NoiseBand::Band,
                             .noiseHz = 4200.0,
                             .noiseAttack = 0.04,
                             .noiseDecay = 0.3,
                             .width = 1.0};
    auto const cycle = [&](int from, int to, int steps, DrumPatch const& patch, double velocity)
    {
        for (int step = from * 12; step < to * 12; step += steps)
            part.Hit(patch, 0.25 * step, velocity);
    };
    cycle(kAssembly, kRun, 7, Anvil(640.0, -0.5), 0.7);
    cycle(kAssembly + 4, kRun, 5, Anvil(910.0, 0.5), 0.5);
    cycle(kAssembly + 2, kRun, 18, steam, 0.8);
    cycle(kRun, kCanon, 15, Anvil(640.0, -0.6), 0.7);
    cycle(kRun, kClock, 18, steam, 0.7);
    cycle(kCanon, kClock, 21, Anvil(910.0, 0.6), 0.6);
    cycle(kPress, kFull, 6, Anvil(480.0, -0.2), 0.9);
    cycle(kPress, kFull, 9, steam, 0.9);
    cycle(kFull, kApart, 7, Anvil(640.0, -0.6), 0.6);
    cycle(kFull, kApart, 5, Anvil(910.0, 0.6), 0.5);
    cycle(kApart, kBars, 7, Anvil(640.0, -0.5), 0.6);
    cycle(kApart, kBars, 18, steam, 0.8);
    piece.Add(part, {-25.0, -12.0, -20.0});
}

void Ticking(Piece& piece)
{
    DrumPatch const closed = kClosedHat;
    Part hats(piece);
    hats.Drums(kAssembly + 8, kRun, "o..o..o.o.o.", closed);
    hats.Drums(kRun, kClock, "xooxooxoxoxo", closed);
    hats.Drums(kPress, kFull, "o.o.o.o.o.o.", closed);
    hats.Drums(kFull, kApart, "xooxooxoxoxo", closed);
    hats.Drums(kFull, kApart, "..x..x......", kOpenHat);
    hats.Drums(kApart, kApart + 4, "o..o..o.o.o.", closed);
    piece.Add(hats, {-26.5, -28.0});

    Part clock(piece);
    clock.Drums(kAssembly, kRun, "x.....o.....", WoodBlock(1500.0, -0.6));
    clock.Drums(kAssembly, kRun, "...o.....o..", WoodBlock(1150.0, 0.6));
    clock.Drums(kClock, kPress, "X.....x.....", WoodBlock(1500.0, -0.6));
    clock.Drums(kClock, kPress, "...x.....x..", WoodBlock(1150.0, 0.6));
    clock.Drums(kClock + 4, kPress, ".oo.oo.oo.oo", WoodBlock(2300.0, 0.2));
    clock.Drums(kFull, kApart, "...x....x.o.", WoodBlock(1150.0, 0.6));
    clock.Drums(kApart, kBars, "x.....o.....", WoodBlock(1500.0, -0.6));
    clock.Drums(kApart, kBars, "...o.....o..", WoodBlock(1150.0, 0.6));
    piece.Add(clock, {-25.5, -14.0});

    Part crashes(piece);
    for (int const bar : {kRun, kCanon, kPress, kFull, kFull + 8, kApart})
        crashes.Hit(kCrash, piece.Beat(bar), 1.0);
    piece.Add(crashes, {-25.0, -16.0});
}

} // namespace

void Drums(Piece& piece)
{
    Kick(piece);
    Snare(piece);
    Machinery(piece);
    Ticking(piece);
}

} // namespace maker::serial
