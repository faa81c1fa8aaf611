// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A sound file as interleaved stereo samples: any stretch of it, exact to the sample, decoded when it is
// asked for. One channel is heard on both sides; of more than two, the first two are.
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace platform
{

class SoundFile
{
public:
    // Nothing when it cannot be read or decoded, or holds no sample.
    static std::optional<SoundFile> open(std::filesystem::path const& file);

    int sampleRate() const { return m_info.samplerate; }    // samples per second
    std::int64_t duration() const { return m_info.frames; } // samples

    // Fills all of it, two numbers a sample, with what is heard from that sample on: silence before the
    // file's beginning and after its end.
    void read(std::int64_t position, std::span<std::int16_t> stereo);
    std::vector<std::int16_t> readAll();

private:
    struct Close
    {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };
    using Handle = std::unique_ptr<SNDFILE, Close>;

    SoundFile(Handle file, SF_INFO const& info) : m_file(std::move(file)), m_info(info) {}
    void goTo(std::int64_t position);
    std::span<std::int16_t const> decodeUpTo(std::int64_t end);

    Handle m_file;
    SF_INFO m_info;
    std::int64_t m_next = 0;             // the sample that is decoded next
    std::vector<std::int16_t> m_decoded; // interleaved, all channels
};

} // namespace platform
