// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Any bytes as a movie: taken apart, then decoded forwards, backwards and at scattered places.
#include "platform/sound/media/EncodedFile.h"

#include <array>
#include <span>

namespace
{

constexpr std::int64_t kBlock = 2048; // samples
constexpr int kBlocks = 16;

void Listen(platform::MediaFile const& file)
{
    auto const track = file.openAudio();
    if (!track)
    {
        return;
    }
    std::array<std::int16_t, 2 * kBlock> stereo{};
    for (std::int64_t i = 0; i < kBlocks; ++i)
    {
        track->read(i * kBlock, stereo);
    }
    for (std::int64_t i = 0; i < kBlocks; ++i)
    {
        track->read(file.duration - (i + 1) * kBlock, stereo);
    }
    for (std::int64_t i = 0; i < kBlocks; ++i)
    {
        track->read(i * 7919 * kBlock % file.duration, stereo);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const file = platform::EncodedFile::fromBytes(std::as_bytes(std::span(data, size)));
    if (file)
    {
        Listen(*file);
    }
    return 0;
}
