// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How a piece is written down: notes in beats and semitones, lines and drum patterns as short texts.
#pragma once

#include "synth/Units.h"

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace maker
{

// Turns beats into frames; the loop is a whole number of frames long.
class Tempo
{
public:
    Tempo(double beatsPerMinute, double beats) : m_secondsPerBeat(60.0 / beatsPerMinute), m_beats(beats) {}

    double Seconds(double beats) const { return beats * m_secondsPerBeat; }
    std::size_t FrameAt(double beat) const { return Frames(Seconds(beat)); }
    std::size_t LoopFrames() const { return FrameAt(m_beats); }

private:
    double m_secondsPerBeat;
    double m_beats;
};

struct Note
{
    double beat = 0.0;     // from the start of the piece
    double beats = 1.0;    // how long it is held
    double pitch = 69.0;   // semitones, 69 is the A of 440 Hz; fractions are allowed
    double velocity = 1.0; // loudness, 1 is full
    double pan = 0.0;      // -1 left to 1 right
};

using Notes = std::vector<Note>;

// A pitch by name: "C4" is 60, "F#3" and "Bb3" as usual.
double PitchOf(std::string_view name);

// Pitches by name, separated by blanks.
std::vector<double> Chord(std::string_view names);

// A line such as "D4:1.5 r:.5 F4:1", each with its length in beats; r is a rest, a trailing ! an accent.
Notes Line(std::string_view text);

// A line in the scale of the overtones 8 to 16 over a root: "8:1 11:.5 r:.5"; 16 is the octave of 8, and the
// numbers may go on above it or below 8. rootPitch is the pitch of overtone 8.
Notes OvertoneLine(std::string_view text, double rootPitch);

// The pitch of an overtone over the root that is overtone 8.
double OvertonePitch(double overtone, double rootPitch);

// The line moved in time and pitch, with its loudness scaled.
Notes Moved(Notes notes, double beats, double semitones = 0.0, double velocity = 1.0);

// Every note held for a share of its written length.
Notes Shortened(Notes notes, double share);

// Calls hit(beat, velocity) for each mark of a pattern: X loud, x plain, o soft, anything else silent.
void Pattern(std::string_view marks, double beat, double beatsPerMark,
             std::function<void(double, double)> const& hit);

} // namespace maker
