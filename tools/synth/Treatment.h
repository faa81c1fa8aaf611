// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What is done to a sound as a whole: filters, distortion, chorus, echo, reverberation, and giving way to the
// kick drum. A loop stays a loop. Frequencies are in Hz.
#pragma once

#include "synth/Score.h"
#include "synth/Signal.h"
#include "synth/StereoLoop.h"

#include <vector>

namespace maker
{

// Takes away what lies below or above the frequency, 12 dB an octave.
void HighPass(StereoLoop& loop, double cutoff);
void HighPass(Signal& signal, double cutoff);
void LowPass(Signal& signal, double cutoff);

// Leaves a region around a frequency. quality: the frequency over the region's width
void BandPass(Signal& signal, double centre, double quality);

// Raises or lowers everything above or below the frequency by that many decibels.
void HighShelf(StereoLoop& loop, double cutoff, double decibels);
void LowShelf(StereoLoop& loop, double cutoff, double decibels);

// Raises or lowers a region around a frequency; in a loop one about one and a half octaves wide.
void Lift(StereoLoop& loop, double centre, double decibels);
void Lift(Signal& signal, double centre, double quality, double decibels);

// Drives a signal into a soft limit, with harmonics; drive 1 hardly changes a signal of level 0.3.
void Drive(Signal& signal, double drive);

// Doubles the sound with copies that waver in pitch. cycles: how often they waver within the loop, a whole
// number so that the wavering, too, ends where it began. depth in seconds.
void Chorus(StereoLoop& loop, int cycles, double depth, double mix);

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
    double lowCut = 300.0;
    double highCut = 4500.0;
};

void Echo(StereoLoop& loop, EchoShape const& shape, Tempo const& tempo);

// A room. The result is the room alone.
struct RoomShape
{
    double seconds = 2.0;    // to -60 dB
    double preDelay = 0.015; // seconds
    double damping = 5000.0; // above this frequency it dies away faster
    double size = 1.0;       // 1 is a hall, 0.4 a chamber
    double lowCut = 180.0;
};

void Reverberate(StereoLoop& loop, RoomShape const& shape);

// A room without the diffusion and the first delay, down to the size of a cockpit. Its answer is added to the
// sound, at a gain; the tail is cut at the sound's end.
struct CabinShape
{
    double seconds; // to -60 dB
    double size;    // 1 is a small hall, 0.3 a cockpit
    double damping; // above this frequency it dies away faster
};

void AddCabin(Stereo& sound, CabinShape const& shape, double gain);

} // namespace maker
