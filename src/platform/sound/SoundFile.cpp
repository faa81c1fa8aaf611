// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/sound/SoundFile.h"

#include <algorithm>

namespace platform
{
namespace
{

// An mp3 frame of 1152 samples may use up to 511 bytes of the frames before it, eight of them at 32 kbit/s,
// and overlaps with the one before it. Decoding begins ten frames early, so that it gives the same after a
// seek as in passing.
constexpr std::int64_t kLeadIn = 10 * 1152;

} // namespace

std::optional<SoundFile> SoundFile::open(std::filesystem::path const& file)
{
    SF_INFO info{};
    Handle handle(sf_open(file.c_str(), SFM_READ, &info));
    if (!handle || info.frames <= 0)
    {
        return std::nullopt;
    }
    // An mp3 may decode to more than 16 bits hold.
    sf_command(handle.get(), SFC_SET_CLIPPING, nullptr, SF_TRUE);
    return SoundFile(std::move(handle), info);
}

void SoundFile::read(std::int64_t position, std::span<std::int16_t> stereo)
{
    std::fill(stereo.begin(), stereo.end(), std::int16_t{0});
    std::int64_t const end = position + static_cast<std::int64_t>(stereo.size() / 2);
    std::int64_t const from = std::clamp<std::int64_t>(position, 0, duration());
    std::int64_t const to = std::clamp<std::int64_t>(end, 0, duration());
    if (from >= to)
    {
        return;
    }
    goTo(from);
    auto out = stereo.begin() + 2 * (from - position);
    auto const decoded = decode(to - from);
    auto const channels = static_cast<std::size_t>(m_info.channels);
    std::size_t const right = std::min<std::size_t>(channels - 1, 1);
    for (std::size_t at = 0; at < decoded.size(); at += channels)
    {
        *out++ = decoded[at];
        *out++ = decoded[at + right];
    }
}

void SoundFile::goTo(std::int64_t position)
{
    if (position != m_next)
    {
        m_next = sf_seek(m_file.get(), std::max<std::int64_t>(position - kLeadIn, 0), SEEK_SET);
        decode(position - m_next);
    }
}

// Fewer samples where the file ends.
std::span<std::int16_t const> SoundFile::decode(std::int64_t samples)
{
    m_decoded.resize(static_cast<std::size_t>(samples * m_info.channels));
    std::int64_t const count = sf_readf_short(m_file.get(), m_decoded.data(), samples);
    m_next += count;
    return {m_decoded.data(), static_cast<std::size_t>(count * m_info.channels)};
}

} // namespace platform
