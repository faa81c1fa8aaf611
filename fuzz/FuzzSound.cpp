// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Any bytes as the audio of an AIFF file, whose header is put before them: what the game decodes for its
// effects, with the format, the channels and the rate in the hands of the fuzzer.
#include "platform/sound/media/EncodedFile.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace
{

std::string Big(std::size_t value)
{
    std::string bytes;
    for (unsigned const shift : {24U, 16U, 8U, 0U})
    {
        bytes += static_cast<char>((value >> shift) & 255U);
    }
    return bytes;
}

constexpr std::size_t kCommonSize = 18;
constexpr std::int64_t kMostSamples = 1 << 20;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size < kCommonSize)
    {
        return 0;
    }
    std::string const input(reinterpret_cast<char const*>(data), size);
    std::string const sound = input.substr(kCommonSize);
    std::string const bytes = "FORM" + Big(4 + 8 + kCommonSize + 16 + sound.size()) + "AIFFCOMM" +
                              Big(kCommonSize) + input.substr(0, kCommonSize) + "SSND" +
                              Big(8 + sound.size()) + Big(0) + Big(0) + sound;
    auto const file = platform::EncodedFile::fromBytes(std::as_bytes(std::span(bytes)));
    auto const track = file ? file->openAudio() : nullptr;
    if (track)
    {
        std::vector<std::int16_t> stereo(2 *
                                         static_cast<std::size_t>(std::min(file->duration, kMostSamples)));
        track->read(0, stereo);
    }
    return 0;
}
