// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An encoded sound or movie in memory. Sound and Movie are the callers.
// What takes it apart and decodes it, and the many libraries which that needs, are a module of their own:
// src/platform/sound/media/, loaded with the first file.
#pragma once

#include "platform/sound/AudioTrack.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace platform
{

// Times of a media file count in its scale's units from its beginning.
struct VideoStream
{
    int width = 0;                   // pixels, as shown
    int height = 0;                  // pixels, as shown
    std::vector<std::int64_t> times; // of the samples, ascending
    std::int64_t end = 0;
};

struct MediaFile
{
    MediaFile() = default;
    virtual ~MediaFile() = default;
    MediaFile(MediaFile const&) = delete;
    MediaFile& operator=(MediaFile const&) = delete;

    // Null, with a log line in the last case, for what cannot be read, holds neither audio nor video, ends
    // before its own header says, or is longer than 2^31 units; or when the module cannot be loaded.
    static std::unique_ptr<MediaFile> open(std::filesystem::path const& file);

    // Reads from this file, which has to outlive it. Null without audio, when there is no decoder, or when
    // nothing at the audio's beginning decodes.
    virtual std::unique_ptr<AudioTrack> openAudio() const = 0;

    int scale = 0; // units per second: the audio's sample rate, 600 without audio
    std::int64_t duration = 0;
    std::optional<VideoStream> video;
};

// What the module exports under this name: the file in so many bytes, which it copies what it needs from, for
// the caller to delete; null as for MediaFile::open.
using OpenMedia = MediaFile*(std::byte const* bytes, std::size_t size);
constexpr char const* kOpenMediaName = "QuarrowOpenMedia";

} // namespace platform
