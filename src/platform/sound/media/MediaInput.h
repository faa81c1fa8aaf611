// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A demuxer over bytes in memory. EncodedFile is the caller.
#pragma once

#include "platform/sound/media/LibavHandles.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace platform
{

class MediaInput
{
public:
    // bytes: borrowed for the object's life.
    explicit MediaInput(std::span<std::byte const> bytes);

    // Null when the bytes are of no known kind. It opens no other file or address that the bytes may name.
    AVFormatContext* open();

private:
    static int Read(void* self, std::uint8_t* buffer, int size);
    static std::int64_t Seek(void* self, std::int64_t offset, int whence);

    std::span<std::byte const> m_bytes;
    std::int64_t m_position = 0;
    LibavHandle<AVIOContext> m_io;
    LibavHandle<AVFormatContext> m_format;
};

} // namespace platform
