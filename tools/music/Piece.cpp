// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "music/Piece.h"

namespace maker
{

namespace
{
constexpr double kSilent = -60.0;
}

Piece::Piece(double beatsPerMinute, double beatsPerBar, int bars)
    : m_beatsPerBar(beatsPerBar),
      m_tempo(beatsPerMinute, beatsPerBar * bars),
      m_dry(m_tempo.LoopFrames()),
      m_room(m_dry),
      m_echo(m_dry)
{
}

void Piece::Add(StereoLoop const& part, Channel const& channel)
{
    double const power = LoudnessPower(part);
    double const gain = power > 0.0 ? Gain(channel.loudness) / std::sqrt(power) : 0.0;
    m_dry.AddLoop(part, gain);
    if (channel.room > kSilent)
        m_room.AddLoop(part, gain * Gain(channel.room));
    if (channel.echo > kSilent)
        m_echo.AddLoop(part, gain * Gain(channel.echo));
}

StereoLoop Piece::Mix(RoomShape const& room, EchoShape const& echo)
{
    Echo(m_echo, echo, m_tempo);
    m_room.AddLoop(m_echo, 0.3);
    Reverberate(m_room, room);
    m_dry.AddLoop(m_echo, 1.0);
    m_dry.AddLoop(m_room, 1.0);
    HighPass(m_dry, 28.0); // nothing below is heard, it would only cost headroom
    return m_dry;
}

void Part::Play(Rush const& rush, double beat, double beats)
{
    maker::Play(rush, beat, beats, m_piece.GetTempo(), *this);
}

void Part::Hit(DrumPatch const& patch, double beat, double velocity)
{
    maker::Hit(patch, beat, velocity, m_piece.GetTempo(), *this);
}

void Part::Drums(int from, int to, std::string_view marks, DrumPatch const& patch)
{
    double const perMark = m_piece.BeatsPerBar() / static_cast<double>(marks.size());
    for (int bar = from; bar < to; ++bar)
        Pattern(marks, m_piece.Beat(bar), perMark,
                [&](double beat, double velocity) { Hit(patch, beat, velocity); });
}

void Part::Kicks(int from, int to, std::string_view marks, DrumPatch const& patch)
{
    Drums(from, to, marks, patch);
    double const perMark = m_piece.BeatsPerBar() / static_cast<double>(marks.size());
    for (int bar = from; bar < to; ++bar)
        Pattern(marks, m_piece.Beat(bar), perMark,
                [&](double beat, double) { m_piece.Kicks().push_back(beat); });
}

void Part::GiveWay(double depth, double recovery)
{
    Duck(*this, {depth, recovery}, m_piece.Kicks(), m_piece.GetTempo());
}

} // namespace maker
