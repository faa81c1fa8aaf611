// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "synth/Mixer.h"

#include "synth/Mastering.h"

namespace music
{

namespace
{
constexpr double kSilent = -60.0;
}

void Mixer::Add(StereoLoop const& part, Channel const& channel)
{
    double const power = LoudnessPower(part);
    double const gain = power > 0.0 ? Gain(channel.loudness) / std::sqrt(power) : 0.0;
    m_dry.AddLoop(part, gain);
    if (channel.room > kSilent)
        m_room.AddLoop(part, gain * Gain(channel.room));
    if (channel.echo > kSilent)
        m_echo.AddLoop(part, gain * Gain(channel.echo));
}

StereoLoop Mixer::Finish(RoomShape const& room, EchoShape const& echo)
{
    Echo(m_echo, echo, m_tempo);
    m_room.AddLoop(m_echo, 0.3);
    Reverberate(m_room, room);
    m_dry.AddLoop(m_echo, 1.0);
    m_dry.AddLoop(m_room, 1.0);
    HighPass(m_dry, 28.0); // nothing below is heard, it would only cost headroom
    return m_dry;
}

} // namespace music
