// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Decodes any stretch of an audio stream to interleaved stereo samples, exact to the sample. Sound decodes
// all of it at once; a movie's audio takes it piece by piece, in whatever order it plays.
#pragma once

#include "platform/LibavHandles.h"
#include "platform/MediaFile.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace platform
{

class AudioTrack
{
public:
    // stream: borrowed for the track's life. Null when there is no decoder, or when nothing at its beginning
    // decodes.
    static std::unique_ptr<AudioTrack> open(AudioStream const& stream);

    // Fills all of it, two numbers a sample, with what is heard from that sample of the movie on; outside of
    // the stream's heard part, and where nothing decodes, that is silence.
    void read(std::int64_t position, std::span<std::int16_t> stereo);

private:
    AudioTrack(AudioStream const& stream, LibavHandle<AVCodecContext> decoder);
    void seek(std::int64_t position);
    bool decodeBlock();
    bool sendNext();
    void convert(AVFrame& frame);
    bool prepareConverter(AVFrame const& frame);

    AudioStream const& m_stream;
    LibavHandle<AVCodecContext> m_decoder;
    LibavHandle<AVPacket> m_packet;
    LibavHandle<AVFrame> m_frame;
    LibavHandle<SwrContext> m_converter;
    int m_converterFormat = -1;
    int m_converterChannels = 0;

    std::size_t m_next = 0;     // packet to send
    bool m_isDraining = false;  // the decoder was told of the end
    bool m_isPastSeek = false;  // no block was decoded since the last seek
    std::int64_t m_covered = 0; // everything from here to the block's begin is silence
    std::int64_t m_blockBegin = 0;
    std::int64_t m_blockEnd = 0;
    std::vector<std::int16_t> m_block; // what was decoded last, stereo
};

} // namespace platform
