// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What happens to the sound of one part: filters, saturation, chorus, echo, reverberation, and giving way to
// the kick drum. All of them keep the loop a loop.
#pragma once

#include "synth/Score.h"
#include "synth/StereoLoop.h"

#include <vector>

namespace music
{

// Takes away what lies below (12 dB an octave) or above the frequency.
void HighPass(StereoLoop& loop, double hertz);
void LowPass(StereoLoop& loop, double hertz);

// Raises or lowers everything above or below the frequency by that many decibels.
void HighShelf(StereoLoop& loop, double hertz, double decibels);
void LowShelf(StereoLoop& loop, double hertz, double decibels);

// Raises or lowers a band about one and a half octaves wide.
void Bell(StereoLoop& loop, double hertz, double decibels);

void Drive(StereoLoop& loop, double amount);

// Doubles the sound with copies that waver in pitch. cycles: how often they waver within the loop, a whole
// number so that the wavering, too, ends where it began. depth in seconds.
void Chorus(StereoLoop& loop, int cycles, double depth, double mix);

// 0 is mono, 1 leaves the width as it is.
void Widen(StereoLoop& loop, double width);

// Lowers the sound at each of the beats, to let a kick drum through.
struct Ducking
{
    double depth = 0.7;     // 0 nothing, 1 down to silence
    double recovery = 0.25; // seconds until nine tenths of the level are back
};

void Duck(StereoLoop& loop, Ducking const& ducking, std::vector<double> const& beats, Tempo const& tempo);

// An echo that changes sides on each return. The result is the echo alone.
struct EchoShape
{
    double beats = 0.75;
    double feedback = 0.45;
    double lowCut = 300.0;   // Hz
    double highCut = 4500.0; // Hz
};

void Echo(StereoLoop& loop, EchoShape const& shape, Tempo const& tempo);

// A room. The result is the room alone.
struct RoomShape
{
    double seconds = 2.0;    // to -60 dB
    double preDelay = 0.015; // seconds
    double damping = 5000.0; // Hz above which it dies away faster
    double size = 1.0;       // 1 is a hall, 0.4 a chamber
    double lowCut = 180.0;   // Hz
};

void Reverberate(StereoLoop& loop, RoomShape const& shape);

} // namespace music
