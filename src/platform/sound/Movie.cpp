// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The time base: it travels as far as was heard, stops at every time that somebody waits for, and goes on
// from wherever the callbacks left it. Sound that was fed ahead of a bend is kept when the callbacks made
// that bend.
#include "platform/sound/Movie.h"

#include "platform/base/Clock.h"
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

// Beyond these rates there is nothing to be heard but rumble and chirping.
constexpr Fixed kSlowestHeard = kNormalRate / 8;
constexpr Fixed kFastestHeard = kNormalRate * 8;

// A movie of a few samples would come to its end thousands of times a frame; the rest of the distance is
// dropped.
constexpr int kMostArrivals = 64;

} // namespace

std::unique_ptr<Movie> Movie::openFile(std::filesystem::path const& file)
{
    auto sound = SoundFile::open(file);
    return std::unique_ptr<Movie>(sound ? new Movie(std::make_unique<MovieAudio>(std::move(*sound)))
                                        : nullptr);
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
    rate = std::max(rate, -INT32_MAX); // can be negated
    if (rate == m_rate)
    {
        return;
    }
    catchUp();
    bool const turns = m_rate == 0 || rate == 0 || (rate < 0) != (m_rate < 0);
    m_rate = rate;
    if (m_isServing)
    {
        return;
    }
    if (turns)
    {
        silence();
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
    catchUp();
    m_isActive = isActive;
    m_lastTask = UpTime();
    if (!m_isActive)
    {
        silence();
    }
}

void Movie::setVolume(std::int16_t volume)
{
    m_volume = volume;
    if (m_rate != 0)
    {
        keepSounding();
    }
}

void Movie::setTimeValue(TimeValue time)
{
    m_time = std::clamp(time, 0, duration());
    if (!m_isServing)
    {
        silence();
        m_lastTask = UpTime();
        keepSounding();
    }
}

void Movie::goToBeginning()
{
    setTimeValue(low());
}

void Movie::goToEnd()
{
    setTimeValue(stopTime());
}

TimeValue Movie::duration() const
{
    return static_cast<TimeValue>(m_audio->file().duration());
}

int Movie::timeScale() const
{
    return m_audio->file().sampleRate();
}

TimeValue Movie::low() const
{
    return std::max(m_activeSegment.start, 0);
}

TimeValue Movie::stopTime() const
{
    return m_activeSegment.start < 0 ? duration() : m_activeSegment.start + m_activeSegment.duration;
}

void Movie::setActiveSegment(TimeRange segment)
{
    catchUp();
    silence();
    if (segment.start < 0)
    {
        m_activeSegment = {-1, 0};
        return;
    }
    TimeValue const start = std::min(segment.start, duration());
    m_activeSegment = {start, std::clamp(segment.duration, 0, duration() - start)};
    m_time = std::clamp(m_time, static_cast<double>(low()), static_cast<double>(stopTime()));
}

void Movie::moviesTask()
{
    // A callback that jumps asks for a task, too; the one that serves it goes on by itself.
    if (m_isServing || !m_isActive)
    {
        return;
    }
    m_isServing = true;
    travel(takeDistance());
    m_isServing = false;
    keepSounding();
}

double Movie::takeDistance()
{
    std::uint64_t const now = UpTime();
    double const seconds = SecondsBetween(m_lastTask, now);
    m_lastTask = now;
    double const owed = std::exchange(m_owed, 0.0);
    if (auto const heard = m_audio->takeHeard())
    {
        return owed + static_cast<double>(*heard);
    }
    return owed + seconds * timeScale() * std::abs(static_cast<double>(m_rate)) / kNormalRate;
}

bool Movie::isAtEnd() const
{
    return m_rate > 0 ? m_time >= stopTime() : m_time <= low();
}

// To the next time in the direction of travel that somebody waits for, or the end.
double Movie::distanceToNextEvent() const
{
    double nearest = m_rate > 0 ? stopTime() - m_time : m_time - low();
    auto const forward = MovieCallBack::Trigger::TimeForward;
    for (MovieCallBack const* const callBack : m_callBacks)
    {
        double const distance = (callBack->m_time - m_time) * direction();
        if (callBack->m_action && (callBack->m_trigger == forward) == (m_rate > 0) && distance > 0.0)
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
                return; // what else was heard did not lie on the new course
            }
        }
        else if (distance <= 0.0 || step <= 0.0)
        {
            return;
        }
    }
}

// At a time that somebody waits for, or at the end, where the movie stops unless a callback sends it
// elsewhere.
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
        silence();
    }
}

// A callback may dispose of itself and others, and arm new ones: each that is due now fires once.
void Movie::fireDue()
{
    int const way = direction();
    TimeValue const now = time();
    std::vector<MovieCallBack*> due;
    std::copy_if(m_callBacks.begin(), m_callBacks.end(), std::back_inserter(due),
                 [&](MovieCallBack const* callBack) { return callBack->isDue(now, way); });
    for (MovieCallBack* const callBack : due)
    {
        bool const stands = std::find(m_callBacks.begin(), m_callBacks.end(), callBack) != m_callBacks.end();
        auto const action = stands ? std::exchange(callBack->m_action, nullptr) : nullptr;
        if (action)
        {
            action();
        }
    }
}

// Brings the time up to what was heard, short of anything that a task has to serve.
void Movie::catchUp()
{
    if (m_isServing || !m_isActive || m_rate == 0)
    {
        return;
    }
    double const distance = takeDistance();
    double const most = isAtEnd() ? 0.0 : std::max(std::ceil(distanceToNextEvent()) - 1.0, 0.0);
    double const step = std::min(distance, most);
    m_owed = distance - step;
    m_time += step * direction();
    m_audio->consume(static_cast<std::int64_t>(step));
}

bool Movie::isAudible() const
{
    Fixed const speed = std::abs(m_rate);
    return m_isActive && speed >= kSlowestHeard && speed <= kFastestHeard;
}

bool Movie::hasTrigger(MovieCallBack::Trigger trigger, TimeValue time) const
{
    return std::any_of(m_callBacks.begin(), m_callBacks.end(),
                       [&](MovieCallBack const* callBack) {
                           return callBack->m_action && callBack->m_trigger == trigger &&
                                  callBack->m_time == time;
                       });
}

// Whoever waits at both ends most likely turns the movie round there.
MovieCourse Movie::course() const
{
    MovieCourse course;
    course.position = static_cast<std::int64_t>(m_time);
    course.direction = direction();
    course.low = low();
    course.high = stopTime();
    bool const waitsAtStop = hasTrigger(MovieCallBack::Trigger::TimeForward, stopTime());
    if (m_loopingHint && waitsAtStop)
    {
        course.atEnd = MovieCourse::AtEnd::JumpToLow;
    }
    else if (waitsAtStop && hasTrigger(MovieCallBack::Trigger::TimeBackward, low()))
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
        silence();
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

void Movie::silence()
{
    m_owed = 0.0;
    m_audio->halt();
}

} // namespace platform
