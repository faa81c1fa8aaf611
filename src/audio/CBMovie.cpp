// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Callbacks fire once, so every end of play arms new ones.
#include "audio/CBMovie.h"

#include "platform/base/Encoding.h"
#include "platform/base/RunLoop.h"
#include "platform/sound/Pasteboard.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <utility>

namespace
{

using Registry = std::map<int, std::shared_ptr<CBMovie>>;

Registry& TheRegistry()
{
    static Registry registry;
    return registry;
}

int HashOf(std::string const& name)
{
    return static_cast<int>(std::hash<std::string>{}(name));
}

// Cut off towards zero, as a cast does, and clamped where the result of a cast is undefined. NaN gives 0.
template <typename Integer>
Integer Truncated(double value)
{
    if (!(value == value))
    {
        return 0;
    }
    double const lowest = std::numeric_limits<Integer>::min();
    double const highest = std::numeric_limits<Integer>::max();
    return static_cast<Integer>(std::clamp(value, lowest, highest));
}

} // namespace

CBMovie::CBMovie(std::shared_ptr<platform::Movie> movie) : m_movie(std::move(movie))
{
}

CBMovie::~CBMovie()
{
    setLoopMode(kLoopNone);
}

std::shared_ptr<CBMovie> CBMovie::init()
{
    return std::unique_ptr<CBMovie>(new CBMovie(nullptr));
}

std::shared_ptr<CBMovie> CBMovie::initWithMovie(std::shared_ptr<platform::Movie> movie)
{
    return movie ? std::unique_ptr<CBMovie>(new CBMovie(std::move(movie))) : nullptr;
}

std::shared_ptr<CBMovie> CBMovie::initWithURL(std::string const& url, bool /*byReference*/)
{
    auto const path = platform::PathOfFileURL(url);
    return path ? initWithMovie(platform::Movie::openFile(*path)) : nullptr;
}

std::shared_ptr<CBMovie> CBMovie::initWithFile(std::filesystem::path const& path, bool /*byReference*/)
{
    return initWithMovie(platform::Movie::openFile(path));
}

std::shared_ptr<CBMovie> CBMovie::initWithPasteboard(platform::Pasteboard const& pasteboard)
{
    auto const path = pasteboard.file();
    return path ? initWithFile(*path, false) : nullptr;
}

std::shared_ptr<CBMovie> CBMovie::movieNamed(std::string const& name)
{
    auto const found = TheRegistry().find(HashOf(name));
    return found != TheRegistry().end() ? found->second : nullptr;
}

bool CBMovie::setName(std::string const& name)
{
    auto const self = shared_from_this();
    auto const holder = movieNamed(name);
    if (holder && holder != self)
    {
        return false;
    }
    if (m_name)
    {
        TheRegistry().erase(HashOf(*m_name));
    }
    TheRegistry()[HashOf(name)] = self;
    m_name = name;
    return true;
}

void CBMovie::start(Sender)
{
    if (m_movie)
    {
        m_movie->start();
        scheduleMoviesTaskTimer();
    }
}

void CBMovie::stop(Sender)
{
    if (m_movie)
    {
        m_movie->stop();
    }
    dropTimer();
}

void CBMovie::setRate(float rate)
{
    if (!m_movie)
    {
        return;
    }
    constexpr double kOne = 65536.0;
    auto const fixed = Truncated<platform::Fixed>(double{rate} * kOne);
    if (rate == 0.0F)
    {
        dropTimer();
    }
    else
    {
        scheduleMoviesTaskTimer();
    }
    m_movie->setRate(fixed);
}

float CBMovie::rate() const
{
    return m_movie ? static_cast<float>(m_movie->rate()) / 65536.0F : 0.0F;
}

void CBMovie::moviesTask()
{
    if (m_movie)
    {
        m_movie->moviesTask();
    }
}

// The action holds a reference, so that a playing movie lives until it is stopped.
void CBMovie::scheduleMoviesTaskTimer()
{
    if (!m_moviesTaskTimer)
    {
        m_moviesTaskTimer =
            platform::Timer::scheduledTimer(0.0, [self = shared_from_this()] { self->moviesTask(); });
    }
}

void CBMovie::dropTimer()
{
    if (auto const timer = std::exchange(m_moviesTaskTimer, nullptr))
    {
        timer->invalidate();
    }
}

void CBMovie::setMovieActive(bool isActive)
{
    if (m_movie)
    {
        m_movie->setActive(isActive);
    }
}

void CBMovie::setLoopMode(int mode)
{
    if (!m_movie)
    {
        return;
    }
    using Trigger = platform::MovieCallBack::Trigger;
    m_movie->moviesTask(); // an end that was passed already is one of the old mode
    m_loopmodeCallBacks = {};
    if (mode == kLoopPalindrome)
    {
        armCallBack(1, Trigger::TimeBackward, 0);
    }
    if (mode == kLoopNormal || mode == kLoopPalindrome)
    {
        armCallBack(0, Trigger::TimeForward, m_movie->duration());
    }
    m_loopmode = mode;
    m_movie->setLoopingHint(mode == kLoopNormal);
}

void CBMovie::armCallBack(std::size_t index, platform::MovieCallBack::Trigger trigger,
                          platform::TimeValue time)
{
    auto& callBack = m_loopmodeCallBacks[index];
    callBack = std::make_unique<platform::MovieCallBack>(*m_movie);
    callBack->callMeWhen(trigger, time, [this, self = callBack.get()] { QTFinishedPlayingProc(self, this); });
}

void QTFinishedPlayingProc(platform::MovieCallBack* /*callBack*/, CBMovie* movie)
{
    if (movie->m_loopmode == kLoopPalindrome)
    {
        movie->m_movie->setRate(-movie->m_movie->rate());
    }
    else if (movie->m_loopmode == kLoopNormal)
    {
        movie->gotoBeginning();
    }
    movie->setLoopMode(movie->m_loopmode);
}

void CBMovie::gotoTime(platform::TimeValue time)
{
    if (m_movie)
    {
        m_movie->setTimeValue(time);
        moviesTask();
    }
}

void CBMovie::gotoEnd(Sender)
{
    if (m_movie)
    {
        m_movie->setTimeValue(m_movie->duration());
    }
}

void CBMovie::gotoPercentFinished(float percent)
{
    auto const whole = std::int64_t{Truncated<int>(percent)};
    gotoTime(Truncated<platform::TimeValue>(static_cast<double>(whole * duration()) / 100.0));
}

float CBMovie::percentFinished() const
{
    return duration() > 0 ? static_cast<float>(time() * 100.0 / duration()) : 0.0F;
}

void CBMovie::setVolume(float volume)
{
    if (m_movie)
    {
        m_movie->setVolume(Truncated<std::int16_t>(double{volume} * 256.0));
    }
}

float CBMovie::volume() const
{
    return m_movie ? static_cast<float>(m_movie->volume()) / 256.0F : 0.0F;
}

void CBMovie::setMuted(bool)
{
    if (m_movie && !isMuted())
    {
        int const negated = -m_movie->volume();
        m_movie->setVolume(static_cast<std::int16_t>(negated));
    }
}

void CBMovie::setSelection(platform::TimeRange selection)
{
    if (m_movie)
    {
        m_movie->setSelection(selection);
    }
}

platform::TimeRange CBMovie::selection() const
{
    return m_movie ? m_movie->selection() : platform::TimeRange{};
}
