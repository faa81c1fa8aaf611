// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "synth/SoundFile.h"

#include <sndfile.h>

#include <memory>

namespace maker
{

namespace
{

using File = std::unique_ptr<SNDFILE, int (*)(SNDFILE*)>;

bool Write(std::string const& path, int format, std::vector<double> const& samples)
{
    SF_INFO info = {};
    info.samplerate = static_cast<int>(kSampleRate);
    info.channels = 2;
    info.format = format;
    File file(sf_open(path.c_str(), SFM_WRITE, &info), &sf_close);
    auto const count = static_cast<sf_count_t>(samples.size());
    return file && sf_write_double(file.get(), samples.data(), count) == count &&
           sf_close(file.release()) == 0;
}

} // namespace

bool WriteAiff(Stereo const& sound, std::string const& path)
{
    // The library counts 32767 steps to full scale, the game as many as there are below 0.
    constexpr double kStep = 32768.0 / 32767.0;
    std::vector<double> samples;
    for (std::size_t i = 0; i < sound.left.size(); ++i)
    {
        samples.insert(samples.end(), {kStep * sound.left[i], kStep * sound.right[i]});
    }
    return Write(path, SF_FORMAT_AIFF | SF_FORMAT_PCM_16, samples);
}

bool WriteWav(StereoLoop const& loop, std::string const& path)
{
    std::vector<double> samples;
    for (std::size_t i = 0; i < loop.Length(); ++i)
    {
        samples.insert(samples.end(), {loop[i].left, loop[i].right});
    }
    return Write(path, SF_FORMAT_WAV | SF_FORMAT_PCM_24, samples);
}

SoundFile ReadSound(std::string const& path)
{
    SF_INFO info = {};
    File const file(sf_open(path.c_str(), SFM_READ, &info), &sf_close);
    SoundFile sound;
    if (file)
    {
        sound.channels = static_cast<std::size_t>(info.channels);
        sound.rate = info.samplerate;
        sound.samples.resize(static_cast<std::size_t>(info.frames * info.channels));
        sf_read_double(file.get(), sound.samples.data(), info.frames * info.channels);
    }
    return sound;
}

} // namespace maker
