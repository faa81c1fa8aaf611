// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A piece while it is rendered: its tempo and bars, the beats on which its kick drum falls, and the mixing
// desk that its parts go through one after the other.
#pragma once

#include "synth/Drums.h"
#include "synth/Mastering.h"
#include "synth/Treatment.h"
#include "synth/Voices.h"

namespace maker
{

struct Channel
{
    double loudness = -20.0; // LUFS while it plays
    double room = -60.0;     // decibels sent to the room; -60 or less is nothing
    double echo = -60.0;     // decibels sent to the echo
};

class Piece
{
public:
    Piece(double beatsPerMinute, double beatsPerBar, int bars);

    double Beat(int bar) const { return bar * m_beatsPerBar; }
    double BeatsPerBar() const { return m_beatsPerBar; }
    Tempo const& GetTempo() const { return m_tempo; }

    // The beats on which other parts can give way to the kick drum.
    std::vector<double>& Kicks() { return m_kicks; }

    // Mixes a part in. Its loudness is measured where it plays (long rests do not count), so that the balance
    // of a piece can be read from its channels.
    void Add(StereoLoop const& part, Channel const& channel);

    // The mix. The echo is heard in the room as well.
    StereoLoop Mix(RoomShape const& room, EchoShape const& echo);

private:
    double m_beatsPerBar;
    Tempo m_tempo;
    std::vector<double> m_kicks;
    StereoLoop m_dry;
    StereoLoop m_room;
    StereoLoop m_echo;
};

// One part of a piece, as long as the piece. Beats count from the start of the piece.
class Part : public StereoLoop
{
public:
    explicit Part(Piece& piece) : StereoLoop(piece.GetTempo().LoopFrames()), m_piece(piece) {}

    template <class Patch>
    void Play(Patch const& patch, Note const& note)
    {
        maker::Play(patch, note, m_piece.GetTempo(), *this);
    }

    void Play(Rush const& rush, double beat, double beats);

    // Plays a line from the start of a bar.
    template <class Patch>
    void Sing(Patch const& patch, Notes const& line, int bar, double semitones, double velocity)
    {
        for (Note const& note : Moved(line, m_piece.Beat(bar), semitones, velocity))
            Play(patch, note);
    }

    void Hit(DrumPatch const& patch, double beat, double velocity);

    // Plays a pattern in each bar from the first up to, but not including, the last; its marks share the bar
    // evenly.
    void Drums(int from, int to, std::string_view marks, DrumPatch const& patch);

    // The same for the drum that other parts give way to.
    void Kicks(int from, int to, std::string_view marks, DrumPatch const& patch);

    void GiveWay(double depth, double recovery);

private:
    Piece& m_piece;
};

} // namespace maker
