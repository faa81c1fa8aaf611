// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A movie of sound that plays at any rate in either direction, read from its file as it plays. Times count
// samples. Everything happens on the caller's thread, in moviesTask() and in the calls that change how it
// plays: sound is fed, time is brought up to what is heard, callbacks are served. Without a device, or at a
// rate that cannot be heard, time follows the clock.
#pragma once

#include "platform/sound/MovieCallBack.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace platform
{

using Fixed = std::int32_t; // 16.16; 0x10000 is 1

struct TimeRange
{
    TimeValue start = 0;
    TimeValue duration = 0;
};

class MovieAudio;
struct MovieCourse;

class Movie : public std::enable_shared_from_this<Movie>
{
public:
    // Null, after one log line, when the file cannot be decoded.
    static std::shared_ptr<Movie> openFile(std::filesystem::path const& file);
    ~Movie();
    Movie(Movie const&) = delete;
    Movie& operator=(Movie const&) = delete;

    void start(); // at rate 1, and makes it active
    void stop() { setRate(0); }
    void setRate(Fixed rate);
    Fixed rate() const { return m_rate; } // 0 also once the movie has reached its end
    void setActive(bool isActive);        // an inactive movie is silent and its time stands

    // 8.8, 256 is full; a negative volume is silent and remembers its amount.
    void setVolume(std::int16_t volume);
    std::int16_t volume() const { return m_volume; }

    // As of the last moviesTask() or change.
    TimeValue time() const { return static_cast<TimeValue>(m_time); }
    void setTimeValue(TimeValue time);
    TimeValue duration() const;

    TimeRange selection() const { return m_selection; }
    void setSelection(TimeRange selection) { m_selection = selection; }

    // The callback at the end will send the movie to its beginning: sound is fed ahead over that seam, so
    // that no gap is heard. To be called after a change of the callbacks at the ends: what was fed ahead
    // otherwise is dropped.
    void setLoopingHint(bool loops);

    void moviesTask();

private:
    friend class MovieCallBack;
    explicit Movie(std::unique_ptr<MovieAudio> audio);

    int direction() const { return m_rate < 0 ? -1 : 1; }
    bool isAtEnd() const;
    bool isAudible() const;
    bool hasCallBack(TimeValue time, int direction) const;
    MovieCourse course() const;
    double distanceToNextEvent() const;
    double takeDistance();
    void travel(double distance);
    void arrive();
    void fireDue();
    [[nodiscard]] std::shared_ptr<Movie> serve(); // to be held: a callback may let go of the movie
    void keepSounding();

    std::unique_ptr<MovieAudio> m_audio; // never null
    std::vector<MovieCallBack*> m_callBacks;

    double m_time = 0.0; // whole while sound is heard
    Fixed m_rate = 0;
    std::int16_t m_volume = 256;
    TimeRange m_selection;
    bool m_isActive = true;
    bool m_loopingHint = false;
    bool m_isServing = false;
    std::uint64_t m_lastTask = 0; // UpTime()
    std::uint64_t m_armings = 0;  // how often callbacks were armed
};

} // namespace platform
