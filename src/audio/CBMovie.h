// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A movie with loop modes, a name and the usual transport controls. A timer of the main run loop serves it
// while it plays, and keeps it alive until it is stopped. Without an underlying movie every operation does
// nothing and every question answers 0.
#pragma once

#include "platform/base/Geometry.h"
#include "platform/sound/Movie.h"

#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace platform
{
class Timer;
struct Pasteboard;
} // namespace platform

enum LoopMode
{
    kLoopNone = 0,       // stops at its end
    kLoopNormal = 1,     // at its end jumps to the beginning and goes on
    kLoopPalindrome = 2, // reverses at either end
};

class CBMovie : public std::enable_shared_from_this<CBMovie>
{
public:
    using Sender = void const*;             // ignored
    static std::shared_ptr<CBMovie> init(); // without an underlying movie
    static std::shared_ptr<CBMovie> initWithMovie(std::shared_ptr<platform::Movie> movie);

    // Null when nothing can be opened. The file is read as it plays, with byReference as without.
    static std::shared_ptr<CBMovie> initWithURL(std::string const& url, bool byReference);
    static std::shared_ptr<CBMovie> initWithFile(std::filesystem::path const& path, bool byReference);
    static std::shared_ptr<CBMovie> initWithPasteboard(platform::Pasteboard const& pasteboard);

    ~CBMovie();
    CBMovie(CBMovie const&) = delete;
    CBMovie& operator=(CBMovie const&) = delete;

    // The registry keeps a named movie alive. Two names with the same hash count as the same name.
    static std::shared_ptr<CBMovie> movieNamed(std::string const& name);
    bool setName(std::string const& name); // false when another movie has it
    std::optional<std::string> const& name() const { return m_name; }

    void start(Sender = nullptr);
    void stop(Sender = nullptr);
    bool isPlaying() const { return m_movie && m_movie->rate() != 0; }
    void setRate(float rate); // 1 is normal, negative is backwards
    float rate() const;
    void moviesTask();
    void scheduleMoviesTaskTimer();
    void setMovieActive(bool isActive);

    void setLoopMode(int mode);
    int loopMode() const { return m_loopmode; }

    platform::TimeValue time() const { return m_movie ? m_movie->time() : 0; } // samples
    platform::TimeValue duration() const { return m_movie ? m_movie->duration() : 0; }
    void gotoTime(platform::TimeValue time);
    void gotoBeginning(Sender = nullptr) { gotoTime(0); }
    void gotoEnd(Sender = nullptr); // takes effect with the next task
    void gotoPosterFrame(Sender = nullptr) { gotoTime(0); }
    void gotoPercentFinished(float percent); // fractions of a percent are dropped
    float percentFinished() const;
    void stepForward(Sender = nullptr) {} // nothing: there are no video frames
    void stepBack(Sender = nullptr) {}

    void setVolume(float volume); // 0..1
    float volume() const;         // negative while muted
    void setMuted(bool muted);    // ignores its argument: it mutes, and never unmutes
    bool isMuted() const { return m_movie && m_movie->volume() < 0; }

    static platform::Rect movieRect() { return {}; } // empty: there is nothing to see
    void setSelection(platform::TimeRange selection);
    platform::TimeRange selection() const;
    void setPlaysSelectionOnly(bool flag) { m_playsSelectionOnly = flag; } // nothing applies it
    bool playsSelectionOnly() const { return m_playsSelectionOnly; }

private:
    explicit CBMovie(std::shared_ptr<platform::Movie> movie);
    // At an end of play turns or rewinds the movie as its loop mode says, and arms the callbacks again.
    friend void QTFinishedPlayingProc(platform::MovieCallBack* callBack, CBMovie* movie);
    void armCallBack(std::size_t index, platform::MovieCallBack::Trigger trigger, platform::TimeValue time);
    void dropTimer();

    std::shared_ptr<platform::Movie> m_movie;
    int m_loopmode = kLoopNone;
    bool m_playsSelectionOnly = false;
    std::array<std::unique_ptr<platform::MovieCallBack>, 2> m_loopmodeCallBacks; // at the end, the beginning
    std::shared_ptr<platform::Timer> m_moviesTaskTimer;
    std::optional<std::string> m_name;
};
