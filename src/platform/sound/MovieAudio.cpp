// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Buffers are filled without regard to where the course bends; spans remember it, so that a bend needs no
// buffer's end and makes no gap.
#include "platform/sound/MovieAudio.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace platform
{
namespace
{

constexpr std::int64_t kBlock = 2048; // samples in a buffer; twenty-four of them hold a second of music

// Blocks fed in one go: few while all is well, so that a frame is not held up.
constexpr int kBlocksAtOnce = 2;
constexpr int kBlocksWhenLow = 4;
constexpr std::size_t kLow = 6; // blocks

// Feeding ahead over the ends of a shorter movie would be all bends and no sound.
constexpr std::int64_t kShortestAhead = 256; // samples

} // namespace

MovieAudio::MovieAudio(SoundFile file) : m_file(std::move(file)), m_free(kBuffers)
{
    std::iota(m_free.begin(), m_free.end(), std::size_t{0});
}

bool MovieAudio::play(MovieCourse const& course, float pitch, float gain)
{
    bool const isReady = AudioDevice::shared().isReady();
    if (!isPlaying())
    {
        forgetQueue();
        if (!isReady || !m_source.acquire())
        {
            return false;
        }
        begin(course);
    }
    // Each setting makes the mixer work the source out anew, changed or not.
    if (std::exchange(m_pitch, pitch) != pitch)
    {
        alSourcef(m_source.get(), AL_PITCH, pitch);
    }
    if (std::exchange(m_gain, gain) != gain)
    {
        alSourcef(m_source.get(), AL_GAIN, gain);
    }
    int const blocks = m_queued.size() < kLow ? kBlocksWhenLow : kBlocksAtOnce;
    for (int i = 0; i < blocks && feedBlock(course); ++i)
    {
    }
    // A source that ran dry stops by itself. What it played is taken back first: it would be heard again.
    ALint state = AL_PLAYING;
    alGetSourcei(m_source.get(), AL_SOURCE_STATE, &state);
    bool const hasUnheard = !m_queued.empty() && (state == AL_INITIAL || state == AL_STOPPED);
    if (hasUnheard)
    {
        alSourcePlay(m_source.get());
    }
    return true;
}

void MovieAudio::halt()
{
    m_source.release();
    forgetQueue();
}

void MovieAudio::forgetQueue()
{
    for (Queued const& queued : m_queued)
    {
        m_free.push_back(queued.buffer);
    }
    m_queued.clear();
    m_spans.clear();
    m_isPlaying = false;
}

void MovieAudio::begin(MovieCourse const& course)
{
    m_isPlaying = true;
    m_cursor = course.position;
    m_direction = course.direction;
    m_unqueued = 0;
    m_reported = 0;
    m_pitch = 1.0F;
    m_gain = 1.0F;
}

std::optional<std::int64_t> MovieAudio::takeHeard()
{
    if (!isPlaying())
    {
        return std::nullopt;
    }
    ALint state = AL_INITIAL;
    ALint offset = 0;
    ALint processed = 0;
    alGetSourcei(m_source.get(), AL_SOURCE_STATE, &state);
    alGetSourcei(m_source.get(), AL_SAMPLE_OFFSET, &offset);
    alGetSourcei(m_source.get(), AL_BUFFERS_PROCESSED, &processed);
    // A device that goes away stops its sources as if they had played all; asked in this order it cannot
    // deceive.
    if (!AudioDevice::shared().isReady() || !isPlaying())
    {
        return std::nullopt;
    }
    std::int64_t heard = m_unqueued;
    if (state == AL_STOPPED)
    {
        // The offset of a stopped source is 0.
        processed = static_cast<ALint>(m_queued.size());
        heard = std::accumulate(m_queued.begin(), m_queued.end(), m_unqueued,
                                [](std::int64_t sum, Queued const& queued) { return sum + queued.samples; });
    }
    else if (state == AL_PLAYING)
    {
        heard += offset;
    }
    recycle(processed);
    // It may have stopped between two questions; the next answer makes up for it.
    std::int64_t const news = std::max<std::int64_t>(heard - m_reported, 0);
    m_reported += news;
    return news;
}

void MovieAudio::recycle(int count)
{
    for (int i = 0; i < count && !m_queued.empty(); ++i)
    {
        ALuint name = 0;
        alSourceUnqueueBuffers(m_source.get(), 1, &name);
        m_unqueued += m_queued.front().samples;
        m_free.push_back(m_queued.front().buffer);
        m_queued.pop_front();
    }
}

void MovieAudio::consume(std::int64_t samples)
{
    while (samples > 0 && !m_spans.empty())
    {
        Span& span = m_spans.front();
        std::int64_t const step = std::min(samples, span.length);
        span.position += step * span.direction;
        span.length -= step;
        samples -= step;
        if (span.length == 0)
        {
            m_spans.pop_front();
        }
    }
}

bool MovieAudio::expects(std::int64_t position, int direction) const
{
    if (m_spans.empty())
    {
        return position == m_cursor && direction == m_direction;
    }
    return position == m_spans.front().position && direction == m_spans.front().direction;
}

// False when all buffers are in use or the course has ended.
bool MovieAudio::feedBlock(MovieCourse const& course)
{
    if (m_free.empty())
    {
        return false;
    }
    m_block.resize(2 * kBlock);
    std::int64_t filled = 0;
    while (filled < kBlock)
    {
        std::int64_t const length = nextStretch(course, kBlock - filled);
        if (length == 0)
        {
            break;
        }
        readStretch(length, m_block.data() + 2 * filled);
        addSpan(length);
        filled += length;
    }
    std::size_t const index = m_free.back();
    if (filled == 0 ||
        !m_buffers[index].fill({m_block.data(), static_cast<std::size_t>(2 * filled)}, m_file.sampleRate()))
    {
        return false;
    }
    m_free.pop_back();
    ALuint const name = m_buffers[index].get();
    alSourceQueueBuffers(m_source.get(), 1, &name);
    m_queued.push_back({index, filled});
    return true;
}

// How far the course goes straight on from the cursor, which is moved over a bend first; 0 at its end.
std::int64_t MovieAudio::nextStretch(MovieCourse const& course, std::int64_t most)
{
    auto const left = [&] { return m_direction > 0 ? course.high - m_cursor : m_cursor - course.low; };
    if (left() <= 0 && course.high - course.low >= kShortestAhead)
    {
        if (course.atEnd == MovieCourse::AtEnd::Turn)
        {
            m_direction = -m_direction;
        }
        else if (course.atEnd == MovieCourse::AtEnd::JumpToLow && m_direction > 0)
        {
            m_cursor = course.low;
        }
    }
    return std::clamp<std::int64_t>(left(), 0, most);
}

void MovieAudio::readStretch(std::int64_t length, std::int16_t* stereo)
{
    std::int64_t const from = m_direction > 0 ? m_cursor : m_cursor - length;
    m_file.read(from, {stereo, static_cast<std::size_t>(2 * length)});
    if (m_direction < 0)
    {
        // Reversed as numbers, then left and right put back in their order.
        std::reverse(stereo, stereo + 2 * length);
        for (std::int64_t i = 0; i < length; ++i)
        {
            std::swap(stereo[2 * i], stereo[2 * i + 1]);
        }
    }
}

void MovieAudio::addSpan(std::int64_t length)
{
    bool const runsOn = !m_spans.empty() && m_spans.back().direction == m_direction &&
                        m_spans.back().position + m_spans.back().length * m_direction == m_cursor;
    if (runsOn)
    {
        m_spans.back().length += length;
    }
    else
    {
        m_spans.push_back({m_cursor, length, m_direction});
    }
    m_cursor += length * m_direction;
}

} // namespace platform
