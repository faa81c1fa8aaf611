// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Drums that more than one piece plays.
#pragma once

#include "synth/Drums.h"

namespace maker
{

inline constexpr DrumPatch kDeepKick = {.toneHz = 48.0,
                                        .fall = 2.3,
                                        .fallTime = 0.045,
                                        .toneDecay = 0.36,
                                        .tone = 1.0,
                                        .drive = 1.6,
                                        .noise = 0.14,
                                        .noiseHz = 3500.0,
                                        .noiseDecay = 0.02};

inline constexpr DrumPatch kFullSnare = {.toneHz = 185.0,
                                         .fall = 0.6,
                                         .fallTime = 0.02,
                                         .toneDecay = 0.16,
                                         .tone = 0.7,
                                         .drive = 0.8,
                                         .noise = 0.5,
                                         .band = NoiseBand::Band,
                                         .noiseHz = 3000.0,
                                         .noiseDecay = 0.26,
                                         .width = 0.5};

inline constexpr DrumPatch kHandClap = {.noise = 0.8,
                                        .band = NoiseBand::Band,
                                        .noiseHz = 1500.0,
                                        .resonance = 0.45,
                                        .noiseDecay = 0.24,
                                        .bursts = 4,
                                        .width = 0.7};

inline constexpr DrumPatch kClosedHat = {
    .noise = 0.5, .noiseHz = 8500.0, .noiseDecay = 0.05, .metal = 0.5, .metalDecay = 0.07, .pan = 0.18};

inline constexpr DrumPatch kOpenHat = {.noise = 0.5,
                                       .noiseHz = 8500.0,
                                       .noiseDecay = 0.28,
                                       .metal = 0.5,
                                       .metalDecay = 0.32,
                                       .width = 0.6,
                                       .pan = -0.12};

inline constexpr DrumPatch kCrash = {.noise = 0.5,
                                     .noiseHz = 5000.0,
                                     .noiseDecay = 2.2,
                                     .metal = 0.4,
                                     .metalHz = 420.0,
                                     .metalCut = 3500.0,
                                     .metalDecay = 1.6,
                                     .width = 1.0};

inline DrumPatch Tom(double hertz, double pan)
{
    return {.toneHz = hertz,
            .fall = 0.8,
            .fallTime = 0.08,
            .toneDecay = 0.5,
            .tone = 1.0,
            .drive = 0.6,
            .noise = 0.1,
            .band = NoiseBand::Band,
            .noiseHz = 900.0,
            .noiseDecay = 0.08,
            .pan = pan};
}

inline constexpr DrumPatch kShaker = {.noise = 0.6,
                                      .band = NoiseBand::Band,
                                      .noiseHz = 6800.0,
                                      .resonance = 0.3,
                                      .noiseAttack = 0.018,
                                      .noiseDecay = 0.09,
                                      .width = 0.4,
                                      .pan = -0.25};

inline DrumPatch WoodBlock(double hertz, double pan)
{
    return {.toneHz = hertz,
            .fall = 0.25,
            .fallTime = 0.006,
            .toneDecay = 0.08,
            .tone = 0.9,
            .noise = 0.12,
            .band = NoiseBand::Band,
            .noiseHz = 2.1 * hertz,
            .resonance = 0.6,
            .noiseDecay = 0.03,
            .pan = pan};
}

inline DrumPatch Anvil(double hertz, double pan)
{
    return {.toneHz = 1.41 * hertz,
            .toneDecay = 0.5,
            .tone = 0.35,
            .noise = 0.3,
            .noiseHz = 6000.0,
            .noiseDecay = 0.03,
            .metal = 0.7,
            .metalHz = hertz,
            .metalCut = 2.2 * hertz,
            .metalDecay = 0.45,
            .pan = pan};
}

} // namespace maker
