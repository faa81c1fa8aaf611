// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An encoded sound or movie in memory, taken apart once when it is opened: the audio packets with their
// places in time, and the times of the video samples. Sound and Movie are the callers. With every packet at
// hand any place of the audio can be decoded, forwards or backwards, without a demuxer's seeking and without
// waiting for the disk.
#pragma once

#include "platform/LibavHandles.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace platform
{

// Times of a media file count in its scale's units from its beginning.
struct AudioPacket
{
    std::int64_t position = 0; // sample at which its decoded audio begins
    std::uint32_t offset = 0;  // into AudioStream::bytes
    std::uint32_t size = 0;
    bool isKey = false; // decoding can begin here
};

struct AudioStream
{
    LibavHandle<AVCodecParameters> parameters;
    int sampleRate = 0;
    std::vector<AudioPacket> packets; // by position
    std::vector<std::uint8_t> bytes;
    // The samples that are meant to be heard: what an encoder put before and after them lies outside.
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

struct VideoStream
{
    int width = 0;                   // pixels, as shown
    int height = 0;                  // pixels, as shown
    std::vector<std::int64_t> times; // of the samples, ascending
    std::int64_t end = 0;
};

struct MediaFile
{
    int scale = 0; // units per second: the audio's sample rate, 600 without audio
    std::int64_t duration = 0;
    std::optional<AudioStream> audio;
    std::optional<VideoStream> video;

    // Null for what cannot be read, holds neither audio nor video, ends before its own header says, or is
    // longer than 2^31 units.
    static std::unique_ptr<MediaFile> open(std::filesystem::path const& file);
    static std::unique_ptr<MediaFile> fromBytes(std::span<std::byte const> bytes);
};

} // namespace platform
