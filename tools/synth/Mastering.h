// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The last steps of a piece (its loudness, measured as in EBU R 128, and a limiter for its peaks) and of an
// effect.
#pragma once

#include "synth/Signal.h"
#include "synth/StereoLoop.h"

namespace maker
{

// Integrated loudness in the power domain: 10 * log10 of it is LUFS.
double LoudnessPower(StereoLoop const& loop);

// Evens out slow changes of level: ratio 2:1 above the threshold (decibels below full scale).
void Compress(StereoLoop& loop, double threshold);

// Lowers the level around every peak, between the samples too, so that none passes the ceiling (linear).
void Limit(StereoLoop& loop, double ceiling);

// Brings the loop to that many LUFS with no peak above the ceiling (decibels below full scale).
void Master(StereoLoop& loop, double lufs, double ceilingDecibels);

// Takes out what lies below hearing, fades the end out over a time in seconds, starts and ends on 0, leaves
// no constant part in either channel, and brings the peak to -1 dB of full scale.
void Finish(Stereo& sound, double fade);

} // namespace maker
