// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The mixing desk of a piece: parts come in one after the other, each with its loudness and its share of the
// common room and echo, and leave as one loop. A part's loudness is measured where it plays (long rests do
// not count), so the balance of a piece can be read from its channels.
#pragma once

#include "synth/Drums.h"
#include "synth/Effects.h"
#include "synth/Voices.h"

namespace music
{

struct Channel
{
    double loudness = -20.0; // LUFS while it plays
    double room = -60.0;     // decibels sent to the room; -60 or less is nothing
    double echo = -60.0;     // decibels sent to the echo
};

class Mixer
{
public:
    explicit Mixer(Tempo const& tempo)
        : m_tempo(tempo),
          m_dry(tempo.LoopFrames()),
          m_room(m_dry),
          m_echo(m_dry)
    {
    }

    StereoLoop NewPart() const { return StereoLoop(m_tempo.LoopFrames()); }

    void Add(StereoLoop const& part, Channel const& channel);

    // The mix. The echo is heard in the room as well.
    StereoLoop Finish(RoomShape const& room, EchoShape const& echo);

private:
    Tempo m_tempo;
    StereoLoop m_dry;
    StereoLoop m_room;
    StereoLoop m_echo;
};

} // namespace music
