// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The untuned instruments: a falling tone, filtered noise and a metallic clang, in any mixture.
#pragma once

#include "synth/Score.h"
#include "synth/StereoLoop.h"

namespace maker
{

enum class NoiseBand
{
    Band,
    High
};

struct DrumPatch
{
    double toneHz = 0.0;    // where the tone comes to rest; 0 for none
    double fall = 0.0;      // octaves from which it falls there
    double fallTime = 0.05; // seconds in which nine tenths of the fall are done
    double toneDecay = 0.3; // seconds to -60 dB, as all decays here
    double tone = 0.0;      // level
    double drive = 0.0;     // saturation of the tone
    double noise = 0.0;     // level
    NoiseBand band = NoiseBand::High;
    double noiseHz = 5000.0;
    double resonance = 0.1;
    double noiseAttack = 0.0005;
    double noiseDecay = 0.1;
    int bursts = 1;           // claps: how many strokes, 11 ms apart, before the last one rings out
    double metal = 0.0;       // level of six square waves that share no common fundamental
    double metalHz = 540.0;   // the lowest of them
    double metalCut = 7000.0; // Hz below which the clang is taken away
    double metalDecay = 0.1;
    double width = 0.0; // 0 the noise is the same in both ears, 1 it is not
    double pan = 0.0;
    double gain = 0.5;
};

void Hit(DrumPatch const& patch, double beat, double velocity, Tempo const& tempo, StereoLoop& loop);

// Rushing noise whose cutoff moves from one frequency to the other while it grows (or, with toLevel below
// fromLevel, fades); for rises into a section and falls out of one.
struct Rush
{
    double fromHz = 200.0;
    double toHz = 8000.0;
    double fromLevel = 0.0;
    double toLevel = 0.3;
    double resonance = 0.5;
};

void Play(Rush const& rush, double beat, double beats, Tempo const& tempo, StereoLoop& loop);

} // namespace maker
