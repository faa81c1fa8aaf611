// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The audio of an open MediaFile as interleaved stereo samples, any stretch of it, exact to the sample. Sound
// takes all of it at once; a movie's audio takes it piece by piece, in whatever order it plays.
#pragma once

#include <cstdint>
#include <span>

namespace platform
{

class AudioTrack
{
public:
    virtual ~AudioTrack() = default;

    // Fills all of it, two numbers a sample, with what is heard from that sample of the movie on; outside of
    // the stream's heard part, and where nothing decodes, that is silence.
    virtual void read(std::int64_t position, std::span<std::int16_t> stereo) = 0;
};

} // namespace platform
