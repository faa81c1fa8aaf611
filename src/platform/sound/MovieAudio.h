// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The sound of a playing movie: keeps a source of the device fed a second ahead, forwards or backwards, and
// tells how many samples the device has played.
#pragma once

#include "platform/sound/AudioDevice.h"
#include "platform/sound/SoundFile.h"

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

namespace platform
{

// Where the movie goes on from a time, in samples. Travelling forwards from position p, sample p is heard
// next; travelling backwards, sample p - 1.
struct MovieCourse
{
    enum class AtEnd
    {
        Stop,
        JumpToBeginning, // and go on forwards
        Turn,            // at either end
    };
    std::int64_t position = 0;
    int direction = 1; // or -1
    std::int64_t end = 0;
    AtEnd atEnd = AtEnd::Stop; // what will probably happen there: samples are fed ahead for it
};

class MovieAudio
{
public:
    explicit MovieAudio(SoundFile file);

    SoundFile const& file() const { return m_file; }

    // Starts along the course, or keeps it fed while it plays. False without a device, or when it has no
    // source left.
    bool play(MovieCourse const& course, float pitch, float gain);
    void halt();

    // False also when the device went away in between.
    bool isPlaying() const { return m_isPlaying && m_source.isAlive(); }

    // Samples that were played since the last call; nothing while it does not play or when the device went
    // away.
    std::optional<std::int64_t> takeHeard();

    // Samples that were fed and not consumed yet, up to the first place where the course jumps or turns.
    std::int64_t stretchLeft() const { return m_spans.empty() ? 0 : m_spans.front().length; }
    void consume(std::int64_t samples);

    // True when the samples that come next were fed for this place and direction.
    bool expects(std::int64_t position, int direction) const;

private:
    static constexpr std::size_t kBuffers = 24;

    struct Span
    {
        std::int64_t position;
        std::int64_t length;
        int direction;
    };
    void begin(MovieCourse const& course);
    void recycle(int count);
    bool feedBlock(MovieCourse const& course);
    std::int64_t nextStretch(MovieCourse const& course, std::int64_t most);
    void readStretch(std::int64_t length, std::int16_t* stereo);
    void addSpan(std::int64_t length);

    SoundFile m_file;
    AudioSource m_source;
    std::array<AudioBuffer, kBuffers> m_buffers; // used in turn
    std::size_t m_first = 0;                     // the buffer that was queued first
    std::deque<std::int64_t> m_queued;           // samples in each queued buffer
    std::deque<Span> m_spans;                    // not consumed
    std::vector<std::int16_t> m_block;

    bool m_isPlaying = false;
    MovieCourse::AtEnd m_atEnd = MovieCourse::AtEnd::Stop; // what was fed ahead for
    float m_pitch = 1.0F;                                  // the source's
    float m_gain = 1.0F;                                   // the source's
    std::int64_t m_cursor = 0;                             // where feeding goes on
    int m_direction = 1;
    std::int64_t m_unqueued = 0; // samples since begin() in buffers that were unqueued
    std::int64_t m_reported = 0; // samples since begin() that takeHeard() answered
};

} // namespace platform
