// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Sound files that the tests make for themselves, and a device that they can listen to.
#pragma once

#include "platform/sound/AudioDevice.h"

#include <AL/alext.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace testmedia
{

using Samples = std::vector<std::int16_t>; // interleaved

constexpr int kFrame = 735; // samples in a sixtieth of a second
constexpr int kFade = 441;  // and in ten milliseconds

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

// Writes a file of that format of libsndfile's, 44,100 samples a second.
inline void WriteSound(std::filesystem::path const& file, int format, Samples const& samples,
                       int channels = 2, int kilobits = 128)
{
    SF_INFO info{};
    info.samplerate = 44100;
    info.channels = channels;
    info.format = format;
    SNDFILE* const sound = sf_open(file.c_str(), SFM_WRITE, &info);
    int mode = SF_BITRATE_MODE_CONSTANT;
    double compression = (320.0 - kilobits) / (320.0 - 32.0); // from the most to the least that mp3 allows
    sf_command(sound, SFC_SET_BITRATE_MODE, &mode, sizeof mode);
    sf_command(sound, SFC_SET_COMPRESSION_LEVEL, &compression, sizeof compression);
    // In 32 bits: of two channels of 16 bits libsndfile 1.2 makes a broken mp3.
    std::vector<int> wide(samples.size());
    std::transform(samples.begin(), samples.end(), wide.begin(), [](int sample) { return sample * 65536; });
    sf_write_int(sound, wide.data(), static_cast<sf_count_t>(wide.size()));
    sf_close(sound);
}

inline void WriteWav(std::filesystem::path const& file, Samples const& samples, int channels = 2)
{
    WriteSound(file, SF_FORMAT_WAV | SF_FORMAT_PCM_16, samples, channels);
}

inline void WriteAiff(std::filesystem::path const& file, Samples const& samples, int channels)
{
    WriteSound(file, SF_FORMAT_AIFF | SF_FORMAT_PCM_16, samples, channels);
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

// No two of 65,521 samples are alike, so that each shows its place; left and right differ.
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

inline Samples Reversed(Samples const& stereo)
{
    Samples reversed(stereo.rbegin(), stereo.rend());
    for (std::size_t i = 0; i < reversed.size(); i += 2)
    {
        std::swap(reversed[i], reversed[i + 1]); // left comes first
    }
    return reversed;
}

// The stereo samples from one place up to another.
inline Samples Part(Samples const& stereo, std::ptrdiff_t from, std::ptrdiff_t to)
{
    return {stereo.begin() + 2 * from, stereo.begin() + 2 * to};
}

inline Samples operator+(Samples left, Samples const& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

// The first sample that differs, -1 for none: a mismatch of a hundred thousand numbers is no help.
inline std::ptrdiff_t FirstDifference(Samples const& left, Samples const& right)
{
    auto const [a, b] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return a == left.end() && b == right.end() ? -1 : (a - left.begin()) / 2;
}

// What is heard from 10 ms after a stop or a jump: OpenAL 1.24 fades out over 64 samples what was heard
// before.
inline Samples AfterFade(Samples const& heard)
{
    return {heard.begin() + 2 * kFade, heard.end()};
}

// With the encoder's delay and padding, and the header that holds their lengths.
inline void WriteMp3(std::filesystem::path const& file, Samples const& stereo)
{
    WriteSound(file, SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, stereo);
}

// Noise that comes and goes, two seconds at 32 kbit/s: its frames use bytes of many frames before them.
inline void WriteNoiseMp3(std::filesystem::path const& file)
{
    std::minstd_rand random(1);
    Samples stereo(2 * 88200);
    for (std::size_t i = 0; i < stereo.size(); ++i)
    {
        bool const isLoud = i / 9000 % 2 == 1;
        stereo[i] = static_cast<std::int16_t>(isLoud ? static_cast<int>(random() % 30001) - 15000 : 0);
    }
    WriteSound(file, SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, stereo, 2, 32);
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

    // The device is unplugged, and there is no other. Nothing more is heard.
    void unplug()
    {
        m_isPluggedIn = false;
        m_device = nullptr;
    }

    // What is heard in the next so many samples.
    Samples render(int frames)
    {
        std::vector<float> heard(2 * static_cast<std::size_t>(frames), 0.0F);
        if (m_device != nullptr)
        {
            m_alcRender(m_device, heard.data(), frames);
        }
        Samples samples(heard.size());
        std::transform(heard.begin(), heard.end(), samples.begin(),
                       [](float sample)
                       { return static_cast<std::int16_t>(std::lround(sample * 32768.0F)); });
        return samples;
    }

    // The same frame by frame, with a task before each and at the end, as the game does.
    template <typename Task>
    Samples renderFrames(int samples, Task task)
    {
        Samples heard;
        for (; samples > 0; samples -= kFrame)
        {
            task();
            heard = std::move(heard) + render(std::min(samples, kFrame));
        }
        task();
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
