// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "synth/Kit.h"

namespace music
{

DrumPatch DeepKick()
{
    DrumPatch kick;
    kick.toneHz = 48.0;
    kick.fall = 2.3;
    kick.fallTime = 0.045;
    kick.toneDecay = 0.36;
    kick.tone = 1.0;
    kick.drive = 1.6;
    kick.noise = 0.14;
    kick.noiseHz = 3500.0;
    kick.noiseDecay = 0.02;
    return kick;
}

DrumPatch FullSnare()
{
    DrumPatch snare;
    snare.toneHz = 185.0;
    snare.fall = 0.6;
    snare.fallTime = 0.02;
    snare.toneDecay = 0.16;
    snare.tone = 0.7;
    snare.drive = 0.8;
    snare.noise = 0.5;
    snare.band = NoiseBand::Band;
    snare.noiseHz = 3000.0;
    snare.noiseDecay = 0.26;
    snare.width = 0.5;
    return snare;
}

DrumPatch HandClap()
{
    DrumPatch clap;
    clap.noise = 0.8;
    clap.band = NoiseBand::Band;
    clap.noiseHz = 1500.0;
    clap.resonance = 0.45;
    clap.noiseDecay = 0.24;
    clap.bursts = 4;
    clap.width = 0.7;
    return clap;
}

DrumPatch ClosedHat()
{
    DrumPatch hat;
    hat.metal = 0.5;
    hat.metalDecay = 0.07;
    hat.noise = 0.5;
    hat.noiseHz = 8500.0;
    hat.noiseDecay = 0.05;
    hat.pan = 0.18;
    return hat;
}

DrumPatch OpenHat()
{
    DrumPatch hat = ClosedHat();
    hat.metalDecay = 0.32;
    hat.noiseDecay = 0.28;
    hat.width = 0.6;
    hat.pan = -0.12;
    return hat;
}

DrumPatch Crash()
{
    DrumPatch crash;
    crash.metal = 0.4;
    crash.metalHz = 420.0;
    crash.metalCut = 3500.0;
    crash.metalDecay = 1.6;
    crash.noise = 0.5;
    crash.noiseHz = 5000.0;
    crash.noiseDecay = 2.2;
    crash.width = 1.0;
    return crash;
}

DrumPatch Tom(double hertz, double pan)
{
    DrumPatch tom;
    tom.toneHz = hertz;
    tom.pan = pan;
    tom.fall = 0.8;
    tom.fallTime = 0.08;
    tom.toneDecay = 0.5;
    tom.tone = 1.0;
    tom.drive = 0.6;
    tom.noise = 0.1;
    tom.noiseHz = 900.0;
    tom.band = NoiseBand::Band;
    tom.noiseDecay = 0.08;
    return tom;
}

DrumPatch Shaker()
{
    DrumPatch shaker;
    shaker.noise = 0.6;
    shaker.band = NoiseBand::Band;
    shaker.noiseHz = 6800.0;
    shaker.resonance = 0.3;
    shaker.noiseAttack = 0.018;
    shaker.noiseDecay = 0.09;
    shaker.width = 0.4;
    shaker.pan = -0.25;
    return shaker;
}

DrumPatch WoodBlock(double hertz, double pan)
{
    DrumPatch block;
    block.toneHz = hertz;
    block.fall = 0.25;
    block.fallTime = 0.006;
    block.toneDecay = 0.08;
    block.tone = 0.9;
    block.noise = 0.12;
    block.band = NoiseBand::Band;
    block.noiseHz = 2.1 * hertz;
    block.resonance = 0.6;
    block.noiseDecay = 0.03;
    block.pan = pan;
    return block;
}

DrumPatch Anvil(double hertz, double pan)
{
    DrumPatch anvil;
    anvil.metal = 0.7;
    anvil.metalHz = hertz;
    anvil.metalCut = 2.2 * hertz;
    anvil.metalDecay = 0.45;
    anvil.toneHz = 1.41 * hertz;
    anvil.tone = 0.35;
    anvil.toneDecay = 0.5;
    anvil.noise = 0.3;
    anvil.noiseHz = 6000.0;
    anvil.noiseDecay = 0.03;
    anvil.pan = pan;
    return anvil;
}

} // namespace music
