// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Movie time follows the samples that the device has played. It stops at every time that a callback is set
// to, and goes on from where the callback leaves it. When a callback jumps or turns as MovieAudio foresaw,
// the samples that are queued past that place stay queued.
#include "platform/sound/Movie.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/sound/MovieAudio.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

namespace platform
{
namespace
{

constexpr Fixed kNormalRate = 0x10000;
constexpr float kFullVolume = 256.0F;

// Slower or faster, music is rumble or chirping: such a movie is silent.
constexpr Fixed kSlowestHeard = kNormalRate / 8;
constexpr Fixed kFastestHeard = kNormalRate * 8;

// Ends and callbacks that one task serves. A looping movie of a few samples would come to its end thousands
// of times a frame; the rest of the distance is dropped.
constexpr int kMostArrivals = 64;

} // namespace

std::shared_ptr<Movie> Movie::openFile(std::filesystem::path const& file)
{
    auto sound = SoundFile::open(file);
    if (!sound)
    {
        LogFormat("The music %s cannot be played", file.c_str());
        return nullptr;
    }
    return std::shared_ptr<Movie>(new Movie(std::make_unique<MovieAudio>(std::move(*sound))));
}

Movie::Movie(std::unique_ptr<MovieAudio> audio) : m_audio(std::move(audio))
{
}

Movie::~Movie() = default;

void Movie::start()
{
    setActive(true);
    setRate(kNormalRate);
}

void Movie::setRate(Fixed rate)
{
    auto const alive = serve();
    rate = std::max(rate, -INT32_MAX); // so that it can be negated
    if (rate == m_rate)
    {
        return;
    }
    bool const turns = m_rate == 0 || rate == 0 || (rate < 0) != (m_rate < 0);
    m_rate = rate;
    if (m_isServing)
    {
        return;
    }
    if (turns)
    {
        m_audio->halt();
    }
    m_lastTask = UpTime();
    keepSounding();
}

void Movie::setActive(bool isActive)
{
    if (isActive == m_isActive)
    {
        return;
    }
    auto const alive = serve();
    m_isActive = isActive;
    m_lastTask = UpTime();
    if (!m_isActive)
    {
        m_audio->halt();
    }
}

void Movie::setVolume(std::int16_t volume)
{
    auto const alive = serve();
    m_volume = volume;
    if (m_rate != 0)
    {
        keepSounding();
    }
}

void Movie::setLoopingHint(bool loops)
{
    auto const alive = serve();
    m_loopingHint = loops;
    keepSounding();
}

void Movie::setTimeValue(TimeValue time)
{
    m_time = std::clamp(time, 0, duration());
    if (!m_isServing)
    {
        m_audio->halt();
        m_lastTask = UpTime();
        keepSounding();
    }
}

TimeValue Movie::duration() const
{
    return static_cast<TimeValue>(m_audio->file().duration());
}

void Movie::moviesTask()
{
    auto const alive = serve();
    keepSounding();
}

// Brings the time up to what was heard. A callback may call this too; the outer call goes on afterwards.
std::shared_ptr<Movie> Movie::serve()
{
    auto alive = shared_from_this();
    if (!m_isServing && m_isActive)
    {
        m_isServing = true;
        travel(takeDistance());
        m_isServing = false;
    }
    return alive;
}

double Movie::takeDistance()
{
    std::uint64_t const now = UpTime();
    double const seconds = SecondsBetween(m_lastTask, now);
    m_lastTask = now;
    if (auto const heard = m_audio->takeHeard())
    {
        return static_cast<double>(*heard);
    }
    return seconds * m_audio->file().sampleRate() * std::abs(static_cast<double>(m_rate)) / kNormalRate;
}

bool Movie::isAtEnd() const
{
    return m_rate > 0 ? m_time >= duration() : m_time <= 0.0;
}

// To the next callback in the direction of travel, or to the end.
double Movie::distanceToNextEvent() const
{
    double nearest = m_rate > 0 ? duration() - m_time : m_time;
    for (MovieCallBack const* const callBack : m_callBacks)
    {
        double const distance = (callBack->m_time - m_time) * direction();
        if (callBack->isArmedFor(direction()) && distance > 0.0)
        {
            nearest = std::min(nearest, distance);
        }
    }
    return nearest;
}

void Movie::travel(double distance)
{
    for (int arrivals = 0; m_rate != 0 && arrivals < kMostArrivals;)
    {
        double const event = isAtEnd() ? 0.0 : distanceToNextEvent();
        double step = std::min(distance, event);
        if (m_audio->isPlaying() && m_audio->stretchLeft() > 0)
        {
            step = std::min(step, static_cast<double>(m_audio->stretchLeft()));
            m_audio->consume(static_cast<std::int64_t>(step));
        }
        m_time += step * direction();
        distance -= step;
        if (step >= event)
        {
            bool const wasHeard = m_audio->isPlaying();
            arrive();
            ++arrivals;
            if (wasHeard && !m_audio->isPlaying())
            {
                return; // the rest was heard on the course that the callback left
            }
        }
        else if (distance <= 0.0 || step <= 0.0)
        {
            return;
        }
    }
}

// At a callback's time, or at the end, where the movie stops unless a callback sends it elsewhere.
void Movie::arrive()
{
    m_time = std::nearbyint(m_time);
    fireDue();
    if (m_rate != 0 && isAtEnd())
    {
        m_rate = 0;
    }
    bool const isOnCourse = m_rate != 0 && m_audio->isPlaying() &&
                            m_audio->expects(static_cast<std::int64_t>(m_time), direction());
    if (!isOnCourse)
    {
        m_audio->halt();
    }
}

// Each callback that is due now fires once. An action may destroy callbacks, its own too, and arm new ones,
// which are not due before the time comes here again.
void Movie::fireDue()
{
    TimeValue const now = time();
    int const towards = direction();
    std::uint64_t const lastArming = m_armings;
    auto const isDue = [&](MovieCallBack const* callBack)
    { return callBack->isDue(now, towards) && callBack->m_arming <= lastArming; };
    for (auto due = std::ranges::find_if(m_callBacks, isDue); due != m_callBacks.end();
         due = std::ranges::find_if(m_callBacks, isDue))
    {
        auto const action = std::exchange((*due)->m_action, nullptr);
        action();
    }
}

bool Movie::isAudible() const
{
    Fixed const speed = std::abs(m_rate);
    return m_isActive && speed >= kSlowestHeard && speed <= kFastestHeard;
}

bool Movie::hasCallBack(TimeValue time, int direction) const
{
    return std::any_of(m_callBacks.begin(), m_callBacks.end(),
                       [&](MovieCallBack const* callBack) { return callBack->isDue(time, direction); });
}

// A movie with callbacks at both ends most likely turns there.
MovieCourse Movie::course() const
{
    MovieCourse course;
    course.position = static_cast<std::int64_t>(m_time);
    course.direction = direction();
    course.end = duration();
    bool const waitsAtEnd = hasCallBack(duration(), 1);
    if (m_loopingHint && waitsAtEnd)
    {
        course.atEnd = MovieCourse::AtEnd::JumpToBeginning;
    }
    else if (waitsAtEnd && hasCallBack(0, -1))
    {
        course.atEnd = MovieCourse::AtEnd::Turn;
    }
    return course;
}

void Movie::keepSounding()
{
    if (m_isServing)
    {
        return;
    }
    if (!isAudible())
    {
        m_audio->halt();
        return;
    }
    bool const wasPlaying = m_audio->isPlaying();
    float const pitch = std::abs(static_cast<float>(m_rate)) / static_cast<float>(kNormalRate);
    float const gain = static_cast<float>(std::max<std::int16_t>(m_volume, 0)) / kFullVolume;
    if (m_audio->play(course(), pitch, gain) && !wasPlaying)
    {
        m_time = std::floor(m_time);
    }
}

} // namespace platform
