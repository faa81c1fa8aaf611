// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Decodes any stretch of a file's audio. A seek starts a few packets early, so that the decoder is in the
// state that it would have had in passing.
#pragma once

#include "platform/sound/AudioTrack.h"
#include "platform/sound/media/EncodedFile.h"
#include "platform/sound/media/LibavHandles.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace platform
{

class AudioDecoder final : public AudioTrack
{
public:
    // audio: borrowed for the decoder's life. Null when there is no decoder, or when nothing at its beginning
    // decodes.
    static std::unique_ptr<AudioDecoder> open(EncodedAudio const& audio);

    void read(std::int64_t position, std::span<std::int16_t> stereo) override;

private:
    AudioDecoder(EncodedAudio const& audio, LibavHandle<AVCodecContext> decoder);
    void seek(std::int64_t position);
    bool decodeBlock();
    bool sendNext();
    void convert(AVFrame& frame);
    bool prepareConverter(AVFrame const& frame);

    EncodedAudio const& m_audio;
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
