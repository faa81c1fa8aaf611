// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/sound/SoundFile.h"

#include <algorithm>

namespace platform
{
namespace
{

constexpr std::int64_t kFrame = 1152; // samples in a frame of an mp3

// A frame may use up to 511 bytes of the frames before it, eight of them at 32 kbit/s, and overlaps with the
// one before it. Decoding begins ten frames early, so that it gives the same after a seek as in passing.
constexpr std::int64_t kLeadIn = 10 * kFrame;

} // namespace

std::optional<SoundFile> SoundFile::open(std::filesystem::path const& file)
{
    SF_INFO info{};
    Handle handle(sf_open(file.c_str(), SFM_READ, &info));
    if (!handle || info.frames <= 0)
    {
        return std::nullopt;
    }
    // An mp3 may decode to more than 16 bits hold: clip, do not wrap round.
    sf_command(handle.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    return SoundFile(std::move(handle), info);
}

void SoundFile::read(std::int64_t position, std::span<std::int16_t> stereo)
{
    auto const count = static_cast<std::int64_t>(stereo.size() / 2);
    std::int64_t const from = std::clamp<std::int64_t>(position, 0, duration());
    std::int64_t const to = position + count;
    auto out = stereo.begin() + 2 * std::clamp<std::int64_t>(-position, 0, count);
    std::fill(stereo.begin(), out, std::int16_t{0});
    if (from < to)
    {
        goTo(from);
    }
    auto const channels = static_cast<std::size_t>(m_info.channels);
    std::size_t const right = std::min<std::size_t>(channels - 1, 1);
    for (auto decoded = decodeUpTo(to); !decoded.empty(); decoded = decodeUpTo(to))
    {
        for (std::size_t at = 0; at < decoded.size(); at += channels)
        {
            *out++ = decoded[at];
            *out++ = decoded[at + right];
        }
    }
    std::fill(out, stereo.end(), std::int16_t{0});
}

std::vector<std::int16_t> SoundFile::readAll()
{
    std::vector<std::int16_t> stereo(2 * static_cast<std::size_t>(duration()));
    read(0, stereo);
    return stereo;
}

void SoundFile::goTo(std::int64_t position)
{
    if (position != m_next)
    {
        m_next = sf_seek(m_file.get(), std::max<std::int64_t>(position - kLeadIn, 0), SEEK_SET);
        while (!decodeUpTo(position).empty())
        {
        }
    }
}

// The next samples before that place, an mp3 frame at most. Empty at the place, and where the file ends.
std::span<std::int16_t const> SoundFile::decodeUpTo(std::int64_t end)
{
    m_decoded.resize(static_cast<std::size_t>(kFrame * m_info.channels));
    std::int64_t const most = std::clamp<std::int64_t>(end - m_next, 0, kFrame);
    std::int64_t const count = sf_readf_short(m_file.get(), m_decoded.data(), most);
    m_next += count;
    return {m_decoded.data(), static_cast<std::size_t>(count * m_info.channels)};
}

} // namespace platform
