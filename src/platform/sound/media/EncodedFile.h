// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A file taken apart once when it is opened: the audio packets with their places in time, and the times of
// the video samples. With every packet at hand any place of the audio can be decoded, forwards or backwards,
// without a demuxer's seeking and without waiting for the disk.
#pragma once

#include "platform/sound/media/LibavHandles.h"
#include "platform/sound/MediaFile.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace platform
{

struct AudioPacket
{
    std::int64_t position = 0; // sample at which its decoded audio begins
    std::uint32_t offset = 0;  // into EncodedAudio::bytes
    std::uint32_t size = 0;
    bool isKey = false; // decoding can begin here
};

struct EncodedAudio
{
    LibavHandle<AVCodecParameters> parameters;
    int sampleRate = 0;
    std::vector<AudioPacket> packets; // by position
    std::vector<std::uint8_t> bytes;
    // The samples that are meant to be heard: what an encoder put before and after them lies outside.
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

struct EncodedFile final : MediaFile
{
    static std::unique_ptr<EncodedFile> fromBytes(std::span<std::byte const> bytes);

    std::unique_ptr<AudioTrack> openAudio() const override;

    std::optional<EncodedAudio> audio;
};

} // namespace platform
