// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The kind of the data is told by its content alone, never by a name.
#include "platform/sound/media/MediaInput.h"

#include <algorithm>
#include <cstdio>

namespace platform
{
namespace
{

constexpr int kBufferSize = 32768;

// Below this the guess is little better than chance: noise passes for half a dozen formats.
constexpr int kLeastScore = AVPROBE_SCORE_RETRY;

int RefuseToOpen(AVFormatContext*, AVIOContext**, char const*, int, AVDictionary**)
{
    return AVERROR(EPERM);
}

} // namespace

MediaInput::MediaInput(std::span<std::byte const> bytes) : m_bytes(bytes)
{
    av_log_set_level(AV_LOG_QUIET);
    auto* const buffer = static_cast<unsigned char*>(av_malloc(kBufferSize));
    if (buffer != nullptr)
    {
        m_io.reset(avio_alloc_context(buffer, kBufferSize, 0, this, Read, nullptr, Seek));
    }
}

AVFormatContext* MediaInput::open()
{
    AVInputFormat const* kind = nullptr;
    if (!m_io || av_probe_input_buffer2(m_io.get(), &kind, "", nullptr, 0, 0) < kLeastScore)
    {
        return nullptr;
    }
    AVFormatContext* context = avformat_alloc_context();
    if (context == nullptr)
    {
        return nullptr;
    }
    context->pb = m_io.get();
    context->io_open = RefuseToOpen;
    // On failure this frees the context.
    if (avformat_open_input(&context, "", kind, nullptr) < 0)
    {
        return nullptr;
    }
    m_format.reset(context);
    return context;
}

// The end is told as such: 0 would be read as "try again", for ever.
int MediaInput::Read(void* self, std::uint8_t* buffer, int size)
{
    auto& input = *static_cast<MediaInput*>(self);
    auto const left = static_cast<std::int64_t>(input.m_bytes.size()) - input.m_position;
    auto const count = std::min<std::int64_t>(size, left);
    if (count <= 0)
    {
        return AVERROR_EOF;
    }
    auto const* const from = reinterpret_cast<std::uint8_t const*>(input.m_bytes.data()) + input.m_position;
    std::copy_n(from, count, buffer);
    input.m_position += count;
    return static_cast<int>(count);
}

std::int64_t MediaInput::Seek(void* self, std::int64_t offset, int whence)
{
    auto& input = *static_cast<MediaInput*>(self);
    auto const size = static_cast<std::int64_t>(input.m_bytes.size());
    if ((whence & AVSEEK_SIZE) != 0)
    {
        return size;
    }
    std::int64_t const base = whence == SEEK_CUR ? input.m_position : (whence == SEEK_END ? size : 0);
    if (offset < -base || offset > size - base)
    {
        return AVERROR(EINVAL);
    }
    input.m_position = base + offset;
    return input.m_position;
}

} // namespace platform
