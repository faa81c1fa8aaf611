// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A buffer may hold samples from both sides of a jump or turn, so that no gap is heard there. Spans tell
// which stretches of the file the queued samples are.
#include "platform/sound/MovieAudio.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace platform
{
namespace
{

constexpr std::int64_t kBlock = 2048; // samples in a buffer; all buffers hold a second

// Blocks decoded in one task: few, so that a frame is not held up, and more while few are queued.
constexpr int kBlocksAtOnce = 2;
constexpr int kBlocksWhenLow = 4;
constexpr std::size_t kLow = 6; // blocks

// The shortest movie, in samples, that is fed ahead over its ends.
constexpr std::int64_t kShortestAhead = 256;

} // namespace

MovieAudio::MovieAudio(SoundFile file) : m_file(std::move(file))
{
}

bool MovieAudio::play(MovieCourse const& course, float pitch, float gain)
{
    bool const isReady = AudioDevice::shared().isReady();
    bool const isFedOverTheEnd = m_spans.size() > 1;
    if (std::exchange(m_atEnd, course.atEnd) != course.atEnd && isFedOverTheEnd)
    {
        halt(); // the samples past the end are not those that come next now
    }
    if (!isPlaying())
    {
        halt();
        if (!isReady || !m_source.acquire())
        {
            return false;
        }
        begin(course);
    }
    // Setting a value, even the same one, makes the mixer compute the source anew.
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
    // A source that has played all its buffers stops; those were unqueued, or it would play them again.
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
    // A device that goes away stops its sources as if they had played all: ask for it after the state.
    if (!AudioDevice::shared().isReady() || !isPlaying())
    {
        return std::nullopt;
    }
    std::int64_t heard = m_unqueued;
    if (state == AL_STOPPED)
    {
        // The offset of a stopped source is 0.
        processed = static_cast<ALint>(m_queued.size());
        heard = std::accumulate(m_queued.begin(), m_queued.end(), m_unqueued);
    }
    else if (state == AL_PLAYING)
    {
        heard += offset;
    }
    recycle(processed);
    // Less than before if the source stopped between two of the questions; the next call makes up for it.
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
        m_unqueued += m_queued.front();
        m_queued.pop_front();
        m_first = (m_first + 1) % kBuffers;
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
    if (m_queued.size() == kBuffers)
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
    AudioBuffer& buffer = m_buffers[(m_first + m_queued.size()) % kBuffers];
    if (filled == 0 ||
        !buffer.fill({m_block.data(), static_cast<std::size_t>(2 * filled)}, m_file.sampleRate()))
    {
        return false;
    }
    ALuint const name = buffer.get();
    alSourceQueueBuffers(m_source.get(), 1, &name);
    m_queued.push_back(filled);
    return true;
}

// How far the course goes straight on from the cursor, which jumps or turns first where the course does. 0 at
// its end.
std::int64_t MovieAudio::nextStretch(MovieCourse const& course, std::int64_t most)
{
    auto const left = [&] { return m_direction > 0 ? course.end - m_cursor : m_cursor; };
    if (left() <= 0 && course.end >= kShortestAhead)
    {
        if (course.atEnd == MovieCourse::AtEnd::Turn)
        {
            m_direction = -m_direction;
        }
        else if (course.atEnd == MovieCourse::AtEnd::JumpToBeginning && m_direction > 0)
        {
            m_cursor = 0;
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
        // Reversing the numbers swaps left and right as well.
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
