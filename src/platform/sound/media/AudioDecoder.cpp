// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/sound/media/AudioDecoder.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace platform
{
namespace
{

// An mp3 frame may lean on the 511 bytes before it, and overlaps with the one frame before; the transform
// codecs that came after need three packets at most.
constexpr std::size_t kLeadInPackets = 3;
constexpr std::uint32_t kLeadInBytes = 512;

constexpr int kMostSamplesInFrame = 1 << 20;

// A decoder that yields nothing for so many packets has nothing to yield.
constexpr std::size_t kPacketsToTry = 64;

} // namespace

AudioDecoder::AudioDecoder(EncodedAudio const& audio, LibavHandle<AVCodecContext> decoder)
    : m_audio(audio),
      m_decoder(std::move(decoder)),
      m_packet(av_packet_alloc()),
      m_frame(av_frame_alloc())
{
}

std::unique_ptr<AudioDecoder> AudioDecoder::open(EncodedAudio const& audio)
{
    AVCodec const* const codec = avcodec_find_decoder(audio.parameters->codec_id);
    LibavHandle<AVCodecContext> decoder(codec != nullptr ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder || avcodec_parameters_to_context(decoder.get(), audio.parameters.get()) < 0)
    {
        return nullptr;
    }
    decoder->pkt_timebase = {1, audio.sampleRate};
    decoder->thread_count = 1;
    decoder->max_samples = kMostSamplesInFrame;
    // Padding is cut by position, which holds after a seek as well.
    decoder->flags2 |= AV_CODEC_FLAG2_SKIP_MANUAL;
    if (avcodec_open2(decoder.get(), codec, nullptr) < 0)
    {
        return nullptr;
    }
    std::unique_ptr<AudioDecoder> opened(new AudioDecoder(audio, std::move(decoder)));
    if (!opened->m_packet || !opened->m_frame)
    {
        return nullptr;
    }
    opened->seek(audio.begin);
    bool const decodes = opened->decodeBlock() && opened->m_next <= kPacketsToTry;
    opened->seek(audio.begin);
    return decodes ? std::move(opened) : nullptr;
}

void AudioDecoder::read(std::int64_t position, std::span<std::int16_t> stereo)
{
    std::fill(stereo.begin(), stereo.end(), std::int16_t{0});
    auto const count = static_cast<std::int64_t>(stereo.size() / 2);
    std::int64_t const end = std::min(position + count, m_audio.end);
    std::int64_t at = std::max(position, m_audio.begin);
    // A short way ahead is decoded through; the rest of a second is more work than a seek.
    if (at < end && (at < m_covered || at > m_blockEnd + m_audio.sampleRate))
    {
        seek(at);
    }
    while (at < end)
    {
        if (m_blockEnd <= at)
        {
            if (!decodeBlock())
            {
                return;
            }
            continue;
        }
        std::int64_t const from = std::max(at, m_blockBegin);
        std::int64_t const to = std::min(end, m_blockEnd);
        if (from < to)
        {
            std::copy(m_block.begin() + 2 * (from - m_blockBegin), m_block.begin() + 2 * (to - m_blockBegin),
                      stereo.begin() + 2 * (from - position));
        }
        at = to;
    }
}

void AudioDecoder::seek(std::int64_t position)
{
    auto const& packets = m_audio.packets;
    auto const after =
        std::upper_bound(packets.begin(), packets.end(), position,
                         [](std::int64_t at, AudioPacket const& packet) { return at < packet.position; });
    auto index = static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - packets.begin() - 1, 0));
    std::size_t steps = 0;
    std::uint32_t bytes = 0;
    while (index > 0 && (steps < kLeadInPackets || bytes < kLeadInBytes || !packets[index].isKey))
    {
        --index;
        ++steps;
        // The packet right before must decode whole, so that only what lies before it counts.
        bytes += steps > 1 ? packets[index].size : 0;
    }
    avcodec_flush_buffers(m_decoder.get());
    m_next = index;
    m_isDraining = false;
    m_isPastSeek = true;
    m_covered = position;
    m_blockBegin = position;
    m_blockEnd = position;
}

// False when the audio has no more.
bool AudioDecoder::decodeBlock()
{
    for (;;)
    {
        int const answer = avcodec_receive_frame(m_decoder.get(), m_frame.get());
        if (answer == 0)
        {
            convert(*m_frame);
            av_frame_unref(m_frame.get());
            return true;
        }
        if (m_isDraining || (answer != AVERROR(EAGAIN) && answer != AVERROR_INVALIDDATA) || !sendNext())
        {
            m_covered = std::max(m_covered, m_blockEnd);
            m_blockBegin = m_blockEnd = std::numeric_limits<std::int64_t>::max() / 2;
            return false;
        }
    }
}

// A packet that the decoder refuses is a stretch of silence. After the last one the decoder gives up what it
// held back.
bool AudioDecoder::sendNext()
{
    if (m_next >= m_audio.packets.size())
    {
        m_isDraining = true;
        return avcodec_send_packet(m_decoder.get(), nullptr) >= 0;
    }
    AudioPacket const& packet = m_audio.packets[m_next++];
    // Without a buffer of its own the packet is copied, and padded, by libavcodec.
    m_packet->data = const_cast<std::uint8_t*>(m_audio.bytes.data() + packet.offset);
    m_packet->size = static_cast<int>(packet.size);
    m_packet->pts = packet.position;
    m_packet->dts = packet.position;
    avcodec_send_packet(m_decoder.get(), m_packet.get());
    m_packet->data = nullptr;
    m_packet->size = 0;
    return true;
}

void AudioDecoder::convert(AVFrame& frame)
{
    // Time stamps of some containers are rounded to a millisecond; running on is exact.
    std::int64_t const stamp = frame.pts;
    std::int64_t const running = m_blockEnd;
    bool const isNear = stamp != AV_NOPTS_VALUE && std::abs(stamp - running) <= m_audio.sampleRate / 100;
    bool const runsOn = !m_isPastSeek && (stamp == AV_NOPTS_VALUE || isNear || stamp < running);
    m_covered = m_isPastSeek ? m_covered : running;
    m_blockBegin = runsOn || stamp == AV_NOPTS_VALUE ? running : stamp;
    m_covered = std::min(m_covered, m_blockBegin);
    m_blockEnd = m_blockBegin + frame.nb_samples;
    m_isPastSeek = false;

    m_block.assign(2 * static_cast<std::size_t>(frame.nb_samples), 0);
    if (frame.sample_rate != m_audio.sampleRate || !prepareConverter(frame))
    {
        return;
    }
    bool const isMono = m_converterChannels == 1;
    auto* output = reinterpret_cast<std::uint8_t*>(m_block.data());
    swr_convert(m_converter.get(), &output, frame.nb_samples,
                const_cast<std::uint8_t const**>(frame.extended_data), frame.nb_samples);
    for (auto i = static_cast<std::size_t>(isMono ? frame.nb_samples : 0); i > 0; --i)
    {
        m_block[2 * i - 1] = m_block[2 * i - 2] = m_block[i - 1];
    }
}

// A single channel is doubled by hand: the library would halve its power.
bool AudioDecoder::prepareConverter(AVFrame const& frame)
{
    int const channels = frame.ch_layout.nb_channels;
    if (m_converter && m_converterFormat == frame.format && m_converterChannels == channels)
    {
        return true;
    }
    AVChannelLayout input{};
    AVChannelLayout output{};
    av_channel_layout_default(&input, channels);
    av_channel_layout_default(&output, channels == 1 ? 1 : 2);
    SwrContext* converter = nullptr;
    swr_alloc_set_opts2(&converter, &output, AV_SAMPLE_FMT_S16, m_audio.sampleRate, &input,
                        static_cast<AVSampleFormat>(frame.format), m_audio.sampleRate, 0, nullptr);
    m_converter.reset(converter);
    if (!m_converter || swr_init(m_converter.get()) < 0)
    {
        m_converter.reset();
        return false;
    }
    m_converterFormat = frame.format;
    m_converterChannels = channels;
    return true;
}

} // namespace platform
