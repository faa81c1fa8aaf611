// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The sound of a playing movie: keeps a source of the device fed a second ahead, forwards or backwards, and
// says how far what is heard has come. Movie is the caller.
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
        JumpToLow, // and go on forwards
        Turn,
    };
    std::int64_t position = 0;
    int direction = 1; // or -1
    std::int64_t low = 0;
    std::int64_t high = 0;
    AtEnd atEnd =
        AtEnd::Stop; // what will probably happen there; it is fed ahead, and thrown away if it does not
};

class MovieAudio
{
public:
    explicit MovieAudio(SoundFile file);

    SoundFile const& file() const { return m_file; }

    // Takes the course up, or keeps it fed while it sounds. False when there is no device or no source to be
    // had.
    bool play(MovieCourse const& course, float pitch, float gain);
    void halt();

    // False as well when the device went away in between.
    bool isPlaying() const { return m_isPlaying && m_source.isAlive(); }

    // Samples that were heard since it was asked last; nothing while it does not play or when the device went
    // away.
    std::optional<std::int64_t> takeHeard();

    // What was fed, from the last consumed sample on: a straight stretch of the course at a time.
    std::int64_t stretchLeft() const { return m_spans.empty() ? 0 : m_spans.front().length; }
    void consume(std::int64_t samples);

    // True when this is where the course that was fed goes on, or may go on.
    bool expects(std::int64_t position, int direction) const;

private:
    static constexpr std::size_t kBuffers = 24;

    struct Span
    {
        std::int64_t position;
        std::int64_t length;
        int direction;
    };
    struct Queued
    {
        std::size_t buffer;
        std::int64_t samples;
    };

    void forgetQueue();
    void begin(MovieCourse const& course);
    void recycle(int count);
    bool feedBlock(MovieCourse const& course);
    std::int64_t nextStretch(MovieCourse const& course, std::int64_t most);
    void readStretch(std::int64_t length, std::int16_t* stereo);
    void addSpan(std::int64_t length);

    SoundFile m_file;
    AudioSource m_source;
    std::array<AudioBuffer, kBuffers> m_buffers;
    std::vector<std::size_t> m_free; // indices into m_buffers
    std::deque<Queued> m_queued;
    std::deque<Span> m_spans; // not consumed
    std::vector<std::int16_t> m_block;

    bool m_isPlaying = false;
    float m_pitch = 1.0F;      // the source's
    float m_gain = 1.0F;       // the source's
    std::int64_t m_cursor = 0; // where feeding goes on
    int m_direction = 1;
    std::int64_t m_unqueued = 0; // samples since begin() in buffers that were taken back
    std::int64_t m_reported = 0; // samples since begin() that takeHeard() answered
};

} // namespace platform
