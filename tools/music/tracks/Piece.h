// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the four pieces have in common: a tempo, bars, a mixing desk, and the beats on which a kick drum
// falls. Each piece is a class of its own that adds its parts one by one and then finishes the mix.
#pragma once

#include "synth/Kit.h"
#include "synth/Mastering.h"
#include "synth/Mixer.h"

namespace music
{

class Piece
{
protected:
    Piece(double beatsPerMinute, double beatsPerBar, int bars)
        : m_beatsPerBar(beatsPerBar),
          m_tempo(beatsPerMinute, beatsPerBar * bars),
          m_mixer(m_tempo)
    {
    }

    double Beat(int bar) const { return bar * m_beatsPerBar; }
    double BeatsPerBar() const { return m_beatsPerBar; }

    // Plays a pattern in each bar from the first up to, but not including, the last; its marks share the bar
    // evenly.
    void Drums(int from, int to, std::string_view marks, DrumPatch const& patch, StereoLoop& part) const
    {
        double const perMark = m_beatsPerBar / static_cast<double>(marks.size());
        for (int bar = from; bar < to; ++bar)
            Pattern(marks, Beat(bar), perMark,
                    [&](double beat, double velocity) { Hit(patch, beat, velocity, m_tempo, part); });
    }

    // The same for the drum that the other parts give way to.
    void Kicks(int from, int to, std::string_view marks, DrumPatch const& patch, StereoLoop& part)
    {
        Drums(from, to, marks, patch, part);
        double const perMark = m_beatsPerBar / static_cast<double>(marks.size());
        for (int bar = from; bar < to; ++bar)
            Pattern(marks, Beat(bar), perMark, [&](double beat, double) { m_kicks.push_back(beat); });
    }

    // Plays a line from the start of a bar.
    template <class Patch>
    void Sing(Patch const& patch, Notes const& line, int bar, double semitones, double velocity,
              StereoLoop& part) const
    {
        PlayAll(patch, Moved(line, Beat(bar), semitones, velocity), m_tempo, part);
    }

    void GiveWay(StereoLoop& part, double depth, double recovery) const
    {
        Duck(part, {depth, recovery}, m_kicks, m_tempo);
    }

private:
    double m_beatsPerBar;

protected:
    Tempo m_tempo;
    Mixer m_mixer;
    std::vector<double> m_kicks; // beats
};

} // namespace music
