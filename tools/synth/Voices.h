// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The tuned instruments. Each is a plain description of a sound; Play renders one note of it into a loop.
#pragma once

#include "synth/Envelope.h"
#include "synth/Oscillator.h"
#include "synth/Score.h"
#include "synth/StereoLoop.h"

namespace maker
{

// Oscillators through a filter.
struct SynthPatch
{
    Wave wave = Wave::Saw;
    int unison = 1;          // how many oscillators, spread in tune and place
    double detune = 0.0;     // semitones between the outermost
    double width = 0.0;      // 0 all in the middle, 1 spread from edge to edge
    double pulseWidth = 0.5; // share of the cycle; for pulses
    double sub = 0.0;        // level of a sine one octave below
    double breath = 0.0;     // level of white noise
    EnvelopeShape amp = {};
    double cutoff = 8000.0; // Hz, for middle C
    double resonance = 0.1; // 0 to 1
    double sweep = 0.0;     // octaves that the filter envelope opens the cutoff by
    EnvelopeShape filter = {};
    double keyFollow = 0.4;    // octaves of cutoff for each octave of pitch
    double drive = 0.0;        // 0 clean; higher saturates
    double vibrato = 0.0;      // semitones
    double vibratoRate = 5.2;  // Hz
    double vibratoDelay = 0.3; // seconds until it is in full swing
    double slideFrom = 0.0;    // semitones from the pitch at which the note begins
    double slideTime = 0.05;   // seconds in which nine tenths of the slide are done
    double gain = 0.3;
};

// A sine whose phase is moved by a second sine, and that one's by a third. Ratios are to the note's
// frequency.
struct FmPatch
{
    double ratio = 1.0;       // first modulator
    double index = 1.0;       // its depth, radians
    double indexDecay = 0.5;  // seconds for the depth to fall by 60 dB
    double indexFloor = 0.0;  // share of the depth that stays
    double secondRatio = 1.0; // second modulator, on the first
    double secondIndex = 0.0;
    double feedback = 0.0; // of the first modulator on itself, radians
    double detune = 0.0;   // semitones between the left and the right ear
    EnvelopeShape amp = {};
    double vibrato = 0.0;     // semitones
    double vibratoRate = 5.0; // Hz
    double gain = 0.3;
};

// A plucked string (after Karplus and Strong).
struct StringPatch
{
    double ring = 1.5;         // seconds for the middle of the range to fall by 60 dB
    double brightness = 0.5;   // 0 dull to 1 bright
    double pickPosition = 0.2; // share of the string's length
    EnvelopeShape amp = {0.001, 4.0, 1.0, 0.15};
    double gain = 0.5;
};

void Play(SynthPatch const& patch, Note const& note, Tempo const& tempo, StereoLoop& loop);
void Play(FmPatch const& patch, Note const& note, Tempo const& tempo, StereoLoop& loop);
void Play(StringPatch const& patch, Note const& note, Tempo const& tempo, StereoLoop& loop);

template <class Patch>
void PlayAll(Patch const& patch, Notes const& notes, Tempo const& tempo, StereoLoop& loop)
{
    for (Note const& note : notes)
        Play(patch, note, tempo, loop);
}

} // namespace maker
