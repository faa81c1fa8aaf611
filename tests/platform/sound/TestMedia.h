// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Sound and movie files that the tests make for themselves, and a device that they can listen to.
#pragma once

#include "platform/sound/AudioDevice.h"

#include <AL/alext.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
}

namespace testmedia
{

using Samples = std::vector<std::int16_t>; // interleaved

// A folder of its own for each user, gone afterwards.
class Folder
{
public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "quarrow-test-XXXXXX").string();
        m_path = mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(m_path); }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;

    std::filesystem::path operator/(std::string const& name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

inline void WriteBytes(std::filesystem::path const& file, std::string const& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

inline std::string ReadBytes(std::filesystem::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline std::string Number(std::uint64_t value, int bytes, bool bigEndian)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
    {
        int const shift = 8 * (bigEndian ? bytes - 1 - i : i);
        text += static_cast<char>((value >> shift) & 255U);
    }
    return text;
}

inline void WriteWav(std::filesystem::path const& file, Samples const& samples, int channels = 2,
                     int rate = 44100)
{
    auto const little = [](std::size_t value, int bytes) { return Number(value, bytes, false); };
    std::size_t const size = samples.size() * 2;
    auto const frame = static_cast<std::size_t>(2 * channels);
    std::string bytes = "RIFF" + little(36 + size, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) +
                        little(static_cast<std::size_t>(channels), 2) +
                        little(static_cast<std::size_t>(rate), 4) +
                        little(static_cast<std::size_t>(rate) * frame, 4) + little(frame, 2) + little(16, 2) +
                        "data" + little(size, 4);
    for (std::int16_t const sample : samples)
    {
        bytes += little(static_cast<std::uint16_t>(sample), 2);
    }
    WriteBytes(file, bytes);
}

inline void WriteAiff(std::filesystem::path const& file, Samples const& samples, int channels)
{
    auto const big = [](std::size_t value, int bytes) { return Number(value, bytes, true); };
    std::size_t const size = samples.size() * 2;
    std::size_t const frames = samples.size() / static_cast<std::size_t>(channels);
    std::string const rate44100{"\x40\x0E\xAC\x44\0\0\0\0\0\0", 10}; // an 80-bit float
    std::string bytes = "FORM" + big(4 + 26 + 16 + size, 4) + "AIFFCOMM" + big(18, 4) +
                        big(static_cast<std::size_t>(channels), 2) + big(frames, 4) + big(16, 2) + rate44100 +
                        "SSND" + big(8 + size, 4) + big(0, 8);
    for (std::int16_t const sample : samples)
    {
        bytes += big(static_cast<std::uint16_t>(sample), 2);
    }
    WriteBytes(file, bytes);
}

// Both channels alike.
inline Samples StereoSine(int frames, double hertz, double amplitude = 0.5, int rate = 44100)
{
    Samples samples;
    for (int i = 0; i < frames; ++i)
    {
        double const value = amplitude * std::sin(2.0 * std::numbers::pi * hertz * i / rate);
        samples.insert(samples.end(), 2, static_cast<std::int16_t>(std::lround(value * 32767.0)));
    }
    return samples;
}

// No two samples of 65,521 alike, so that each place can be told; left and right differ.
inline Samples StereoRamp(int frames)
{
    Samples samples;
    for (int i = 0; i < frames; ++i)
    {
        auto const value = static_cast<std::int16_t>(1 + (i * 7) % 32749);
        samples.push_back(value);
        samples.push_back(static_cast<std::int16_t>(-value));
    }
    return samples;
}

// A file that libavformat makes: its audio of a sample format that the encoder takes, its video of plain
// frames.
class Encoder
{
public:
    explicit Encoder(std::filesystem::path const& file) : m_file(file)
    {
        avformat_alloc_output_context2(&m_format, nullptr, nullptr, file.c_str());
    }
    Encoder(Encoder const&) = delete;
    Encoder& operator=(Encoder const&) = delete;
    ~Encoder()
    {
        avcodec_free_context(&m_audio);
        avcodec_free_context(&m_video);
        avio_closep(&m_format->pb);
        avformat_free_context(m_format);
    }

    void addAudio(AVCodecID id, AVSampleFormat sampleFormat, int rate = 44100)
    {
        m_audio = avcodec_alloc_context3(avcodec_find_encoder(id));
        m_audio->sample_rate = rate;
        m_audio->sample_fmt = sampleFormat;
        m_audio->bit_rate = 160000;
        av_channel_layout_default(&m_audio->ch_layout, 2);
        m_audio->time_base = {1, rate};
        m_audioStream = addStream(m_audio);
    }

    void addVideo(int width, int height, int framesPerSecond)
    {
        m_video = avcodec_alloc_context3(avcodec_find_encoder(AV_CODEC_ID_MPEG4));
        m_video->width = width;
        m_video->height = height;
        m_video->pix_fmt = AV_PIX_FMT_YUV420P;
        m_video->time_base = {1, framesPerSecond};
        m_videoStream = addStream(m_video);
    }

    void begin()
    {
        avio_open(&m_format->pb, m_file.c_str(), AVIO_FLAG_WRITE);
        [[maybe_unused]] int const result = avformat_write_header(m_format, nullptr);
    }

    void writeAudio(Samples const& stereo)
    {
        auto const total = static_cast<int>(stereo.size() / 2);
        int const most = m_audio->frame_size > 0 ? m_audio->frame_size : 1024;
        for (int at = 0; at < total; at += most)
        {
            AVFrame* frame = av_frame_alloc();
            frame->nb_samples = std::min(most, total - at);
            frame->format = m_audio->sample_fmt;
            av_channel_layout_copy(&frame->ch_layout, &m_audio->ch_layout);
            frame->sample_rate = m_audio->sample_rate;
            av_frame_get_buffer(frame, 0);
            frame->pts = at;
            for (int i = 0; i < frame->nb_samples; ++i)
            {
                for (int channel = 0; channel < 2; ++channel)
                {
                    put(*frame, i, channel, stereo[static_cast<std::size_t>(2 * (at + i) + channel)]);
                }
            }
            send(m_audio, m_audioStream, frame);
            av_frame_free(&frame);
        }
    }

    void writeVideo(int frames)
    {
        for (int i = 0; i < frames; ++i)
        {
            AVFrame* frame = av_frame_alloc();
            frame->format = m_video->pix_fmt;
            frame->width = m_video->width;
            frame->height = m_video->height;
            av_frame_get_buffer(frame, 0);
            for (int plane = 0; plane < 3; ++plane)
            {
                int const rows = plane == 0 ? frame->height : (frame->height + 1) / 2;
                std::fill_n(frame->data[plane], frame->linesize[plane] * rows,
                            static_cast<std::uint8_t>(16 + 20 * i));
            }
            frame->pts = i;
            send(m_video, m_videoStream, frame);
            av_frame_free(&frame);
        }
    }

    void finish()
    {
        for (auto const& [codec, stream] :
             {std::pair{m_audio, m_audioStream}, std::pair{m_video, m_videoStream}})
        {
            if (codec != nullptr)
            {
                send(codec, stream, nullptr);
            }
        }
        av_write_trailer(m_format);
    }

private:
    AVStream* addStream(AVCodecContext* codec)
    {
        if ((m_format->oformat->flags & AVFMT_GLOBALHEADER) != 0)
        {
            codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        }
        avcodec_open2(codec, nullptr, nullptr);
        AVStream* const stream = avformat_new_stream(m_format, nullptr);
        avcodec_parameters_from_context(stream->codecpar, codec);
        stream->time_base = codec->time_base;
        return stream;
    }

    static void put(AVFrame& frame, int index, int channel, std::int16_t sample)
    {
        switch (frame.format)
        {
        case AV_SAMPLE_FMT_S16P:
            reinterpret_cast<std::int16_t*>(frame.extended_data[channel])[index] = sample;
            break;
        case AV_SAMPLE_FMT_FLTP:
            reinterpret_cast<float*>(frame.extended_data[channel])[index] =
                static_cast<float>(sample) / 32768.0F;
            break;
        default:
            reinterpret_cast<std::int16_t*>(frame.extended_data[0])[2 * index + channel] = sample;
            break;
        }
    }

    void send(AVCodecContext* codec, AVStream* stream, AVFrame* frame)
    {
        avcodec_send_frame(codec, frame);
        AVPacket* packet = av_packet_alloc();
        while (avcodec_receive_packet(codec, packet) == 0)
        {
            packet->stream_index = stream->index;
            if (codec == m_video && packet->duration == 0)
            {
                packet->duration = 1;
            }
            av_packet_rescale_ts(packet, codec->time_base, stream->time_base);
            av_interleaved_write_frame(m_format, packet);
        }
        av_packet_free(&packet);
    }

    std::filesystem::path m_file;
    AVFormatContext* m_format = nullptr;
    AVCodecContext* m_audio = nullptr;
    AVCodecContext* m_video = nullptr;
    AVStream* m_audioStream = nullptr;
    AVStream* m_videoStream = nullptr;
};

// With the encoder's delay and padding, and the header that tells them.
inline void WriteMp3(std::filesystem::path const& file, Samples const& stereo)
{
    Encoder encoder(file);
    encoder.addAudio(AV_CODEC_ID_MP3, AV_SAMPLE_FMT_S16P);
    encoder.begin();
    encoder.writeAudio(stereo);
    encoder.finish();
}

// A QuickTime file of frames in one size, silent.
inline void WriteVideo(std::filesystem::path const& file, int frames, int framesPerSecond, int width,
                       int height)
{
    Encoder encoder(file);
    encoder.addVideo(width, height, framesPerSecond);
    encoder.begin();
    encoder.writeVideo(frames);
    encoder.finish();
}

// While it lives all sound goes to a loopback device of 44,100 stereo samples a second, and time goes on only
// as far as a test renders. Floats, since OpenAL adds dither to 16 bits.
class Loopback
{
public:
    Loopback()
    {
        m_alcOpen = load<LPALCLOOPBACKOPENDEVICESOFT>("alcLoopbackOpenDeviceSOFT");
        m_alcRender = load<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT");
        plugIn();
    }
    ~Loopback()
    {
        platform::AudioDevice::shared().setOpening({[]() -> ALCdevice* { return nullptr; }, {}});
    }
    Loopback(Loopback const&) = delete;
    Loopback& operator=(Loopback const&) = delete;

    void plugIn()
    {
        m_isPluggedIn = true;
        platform::AudioDevice::Opening opening;
        opening.open = [this] { return m_device = m_isPluggedIn ? m_alcOpen(nullptr) : nullptr; };
        opening.attributes = {ALC_FORMAT_CHANNELS_SOFT,
                              ALC_STEREO_SOFT,
                              ALC_FORMAT_TYPE_SOFT,
                              ALC_FLOAT_SOFT,
                              ALC_FREQUENCY,
                              44100,
                              ALC_HRTF_SOFT,
                              ALC_FALSE};
        opening.isConnected = [this](ALCdevice*) { return m_isPluggedIn; };
        platform::AudioDevice::shared().setOpening(opening);
    }

    // Pulled out, and there is no other. Nothing more is heard.
    void unplug()
    {
        m_isPluggedIn = false;
        m_device = nullptr;
    }

    // What is heard in the next so many samples: left and right in turn, in units of a 16-bit sample.
    std::vector<float> render(int frames)
    {
        std::vector<float> heard(2 * static_cast<std::size_t>(frames), 0.0F);
        if (m_device != nullptr)
        {
            m_alcRender(m_device, heard.data(), frames);
        }
        for (float& sample : heard)
        {
            sample *= 32768.0F;
        }
        return heard;
    }

private:
    template <typename Function>
    static Function load(char const* name)
    {
        return reinterpret_cast<Function>(alcGetProcAddress(nullptr, name));
    }

    LPALCLOOPBACKOPENDEVICESOFT m_alcOpen = nullptr;
    LPALCRENDERSAMPLESSOFT m_alcRender = nullptr;
    ALCdevice* m_device = nullptr;
    bool m_isPluggedIn = false;
};

} // namespace testmedia
