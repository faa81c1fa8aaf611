// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Demuxing, and the one time line on which audio and video lie.
#include "platform/sound/media/EncodedFile.h"

#include "platform/sound/media/AudioDecoder.h"
#include "platform/sound/media/MediaInput.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace platform
{
namespace
{

constexpr int kScaleWithoutAudio = 600;
constexpr int kLowestRate = 1000;
constexpr int kHighestRate = 768000;
constexpr std::size_t kLargestFile = std::size_t{64} << 20U; // bytes
constexpr std::size_t kMostPackets = 1000000;
constexpr int kMostPixels = 16384; // a side

// A file that lacks more than a fiftieth of what its header promises was cut off.
constexpr std::int64_t kCutOffDivisor = 50;

AVStream* BestStream(AVFormatContext* format, AVMediaType type)
{
    int const index = av_find_best_stream(format, type, -1, -1, nullptr, 0);
    AVStream* const stream = index >= 0 ? format->streams[index] : nullptr;
    bool const isCover = stream != nullptr && (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
    return isCover ? nullptr : stream;
}

// How many samples of a packet's beginning and end are an encoder's padding.
struct Padding
{
    std::int64_t before = 0;
    std::int64_t after = 0;
};

Padding PaddingOf(AVPacket const& packet)
{
    std::size_t size = 0;
    std::uint8_t const* const data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    if (data == nullptr || size < 8)
    {
        return {};
    }
    auto const little32 = [data](int at)
    {
        return std::int64_t{data[at]} | (std::int64_t{data[at + 1]} << 8) |
               (std::int64_t{data[at + 2]} << 16) | (std::int64_t{data[at + 3]} << 24);
    };
    return {little32(0), little32(4)};
}

class Demuxer
{
public:
    // size: bytes of the whole file, which its packets together do not exceed.
    Demuxer(AVFormatContext* format, std::size_t size, EncodedFile& file)
        : m_format(format),
          m_size(size),
          m_file(file)
    {
    }

    bool run()
    {
        std::vector<std::int64_t> const promised = promisedDurations();
        if (avformat_find_stream_info(m_format, nullptr) < 0 || !chooseStreams())
        {
            return false;
        }
        readPackets();
        bool const isWhole = isComplete(m_audio, promised) && isComplete(m_video, promised);
        bool const hasAudio = isWhole && finishAudio();
        bool const hasVideo = isWhole && finishVideo();
        return (hasAudio || hasVideo) && layOnOneTimeLine();
    }

private:
    // Asked before libavformat starts to estimate.
    std::vector<std::int64_t> promisedDurations() const
    {
        std::vector<std::int64_t> durations;
        for (unsigned i = 0; i < m_format->nb_streams; ++i)
        {
            durations.push_back(m_format->streams[i]->duration);
        }
        return durations;
    }

    bool chooseStreams()
    {
        m_audio.stream = BestStream(m_format, AVMEDIA_TYPE_AUDIO);
        m_video.stream = BestStream(m_format, AVMEDIA_TYPE_VIDEO);
        for (unsigned i = 0; i < m_format->nb_streams; ++i)
        {
            m_format->streams[i]->discard = AVDISCARD_ALL;
        }
        for (AVStream* const used : {m_audio.stream, m_video.stream})
        {
            if (used != nullptr)
            {
                used->discard = AVDISCARD_DEFAULT;
            }
        }
        int const rate = m_audio.stream != nullptr ? m_audio.stream->codecpar->sample_rate : 0;
        if (rate >= kLowestRate && rate <= kHighestRate)
        {
            m_file.audio.emplace();
            m_file.audio->sampleRate = rate;
            m_file.audio->bytes.reserve(m_size);
        }
        m_file.scale = m_file.audio ? rate : kScaleWithoutAudio;
        if (m_video.stream != nullptr && m_video.stream->codecpar->width > 0)
        {
            m_file.video.emplace();
        }
        return m_file.audio || m_file.video;
    }

    void readPackets()
    {
        LibavHandle<AVPacket> const packet(av_packet_alloc());
        for (std::size_t count = 0;
             packet && count < kMostPackets && av_read_frame(m_format, packet.get()) >= 0; ++count)
        {
            bool const isAudio = m_audio.isFor(*packet) && m_file.audio;
            bool const isVideo = m_video.isFor(*packet) && m_file.video;
            bool const fits = !isAudio || takeAudio(*packet);
            if (isVideo)
            {
                m_file.video->times.push_back(m_video.advance(*packet, m_file.scale));
            }
            av_packet_unref(packet.get());
            if (!fits)
            {
                return;
            }
        }
    }

    bool takeAudio(AVPacket const& packet)
    {
        EncodedAudio& audio = *m_file.audio;
        if (packet.size <= 0)
        {
            return true;
        }
        auto const size = static_cast<std::size_t>(packet.size);
        if (audio.bytes.size() + size > kLargestFile)
        {
            return false;
        }
        AudioPacket taken;
        taken.position = m_audio.advance(packet, m_file.scale);
        taken.offset = static_cast<std::uint32_t>(audio.bytes.size());
        taken.size = static_cast<std::uint32_t>(size);
        taken.isKey = (packet.flags & AV_PKT_FLAG_KEY) != 0;

        Padding const padding = PaddingOf(packet);
        if (audio.packets.empty())
        {
            audio.begin = taken.position + padding.before;
            m_heardEnd = std::numeric_limits<std::int64_t>::max();
        }
        if (padding.after > 0)
        {
            m_heardEnd = std::min(m_heardEnd, m_audio.end - padding.after);
        }
        audio.packets.push_back(taken);
        audio.bytes.insert(audio.bytes.end(), packet.data, packet.data + size);
        return true;
    }

    // One chosen stream, and how far it was read in units of the file's scale.
    struct Track
    {
        AVStream* stream = nullptr;
        std::int64_t first = 0;
        std::int64_t end = 0;
        bool hasBegun = false;

        bool isFor(AVPacket const& packet) const
        {
            return stream != nullptr && packet.stream_index == stream->index;
        }

        // The packet's time. A packet without one follows the last; audio never goes back.
        std::int64_t advance(AVPacket const& packet, int scale)
        {
            AVRational const unit{1, scale};
            std::int64_t const stamp = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
            std::int64_t time = stamp != AV_NOPTS_VALUE ? av_rescale_q(stamp, stream->time_base, unit) : end;
            time = std::clamp<std::int64_t>(time, -kFarthest, kFarthest);
            if (!hasBegun)
            {
                first = time;
                end = time;
                hasBegun = true;
            }
            if (stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
            {
                time = std::max(time, lastTime);
                lastTime = time;
            }
            std::int64_t const length =
                av_rescale_q(std::max<std::int64_t>(packet.duration, 0), stream->time_base, unit);
            first = std::min(first, time);
            end = std::max(end, time + std::clamp<std::int64_t>(length, 0, kFarthest));
            return time;
        }

        std::int64_t lastTime = -kFarthest;
    };

    bool isComplete(Track const& track, std::vector<std::int64_t> const& promised) const
    {
        if (track.stream == nullptr)
        {
            return true;
        }
        auto const index = static_cast<std::size_t>(track.stream->index);
        if (index >= promised.size() || promised[index] <= 0)
        {
            return true;
        }
        std::int64_t const length = av_rescale_q(promised[index], track.stream->time_base, {1, m_file.scale});
        // The headers of packed formats count the encoder's padding; those of plain samples are exact.
        bool const isPlain = av_get_exact_bits_per_sample(track.stream->codecpar->codec_id) > 0;
        int const padding = isPlain ? 0 : m_file.scale / 10;
        return track.end - track.first >= length - length / kCutOffDivisor - padding;
    }

    bool finishAudio()
    {
        if (!m_file.audio || m_file.audio->packets.empty())
        {
            m_file.audio.reset();
            return false;
        }
        EncodedAudio& audio = *m_file.audio;
        audio.end = std::min(m_audio.end, m_heardEnd);
        // Shrinking copies it all; it is worth that where most of the file was something else.
        if (audio.bytes.size() < m_size - m_size / 8)
        {
            audio.bytes.shrink_to_fit();
        }
        audio.packets.shrink_to_fit();
        audio.parameters.reset(avcodec_parameters_alloc());
        bool const isCopied = audio.parameters &&
                              avcodec_parameters_copy(audio.parameters.get(), m_audio.stream->codecpar) >= 0;
        if (!isCopied || audio.begin >= audio.end)
        {
            m_file.audio.reset();
        }
        return m_file.audio.has_value();
    }

    bool finishVideo()
    {
        if (!m_file.video || m_file.video->times.empty())
        {
            m_file.video.reset();
            return false;
        }
        VideoStream& video = *m_file.video;
        std::sort(video.times.begin(), video.times.end());
        video.times.erase(std::unique(video.times.begin(), video.times.end()), video.times.end());
        video.end = std::max(m_video.end, video.times.back());
        AVRational const pixel = av_guess_sample_aspect_ratio(m_format, m_video.stream, nullptr);
        AVCodecParameters const& parameters = *m_video.stream->codecpar;
        std::int64_t const width = pixel.num > 0 && pixel.den > 0
                                       ? av_rescale(parameters.width, pixel.num, pixel.den)
                                       : parameters.width;
        video.width = static_cast<int>(std::clamp<std::int64_t>(width, 1, kMostPixels));
        video.height = std::clamp(parameters.height, 1, kMostPixels);
        return true;
    }

    // The movie begins where the first of its tracks does.
    bool layOnOneTimeLine()
    {
        std::int64_t const audioBegin = m_file.audio ? m_file.audio->begin : kFarthest;
        std::int64_t const videoBegin = m_file.video ? m_file.video->times.front() : kFarthest;
        std::int64_t const zero = std::min(audioBegin, videoBegin);
        if (m_file.audio)
        {
            EncodedAudio& audio = *m_file.audio;
            audio.begin -= zero;
            audio.end -= zero;
            std::for_each(audio.packets.begin(), audio.packets.end(),
                          [&](auto& packet) { packet.position -= zero; });
            m_file.duration = audio.end;
        }
        if (m_file.video)
        {
            VideoStream& video = *m_file.video;
            std::for_each(video.times.begin(), video.times.end(), [&](auto& time) { time -= zero; });
            video.end -= zero;
            m_file.duration = std::max(m_file.duration, video.end);
        }
        return m_file.duration > 0 && m_file.duration <= std::numeric_limits<std::int32_t>::max();
    }

    // Beyond any time that counts, and far from overflow.
    static constexpr std::int64_t kFarthest = std::int64_t{1} << 48;

    AVFormatContext* m_format;
    std::size_t m_size;
    EncodedFile& m_file;
    Track m_audio;
    Track m_video;
    std::int64_t m_heardEnd = 0;
};

} // namespace

std::unique_ptr<EncodedFile> EncodedFile::fromBytes(std::span<std::byte const> bytes)
{
    MediaInput input(bytes);
    AVFormatContext* const format = input.open();
    auto file = std::make_unique<EncodedFile>();
    return format != nullptr && Demuxer(format, bytes.size(), *file).run() ? std::move(file) : nullptr;
}

std::unique_ptr<AudioTrack> EncodedFile::openAudio() const
{
    return audio ? AudioDecoder::open(*audio) : nullptr;
}

} // namespace platform
