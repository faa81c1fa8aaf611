// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A movie knows its callbacks, and a callback its movie; neither owns the other.
#include "platform/sound/MovieCallBack.h"

#include "platform/sound/Movie.h"

#include <utility>

namespace platform
{

MovieCallBack::MovieCallBack(Movie& movie) : m_movie(movie)
{
    movie.m_callBacks.push_back(this);
}

MovieCallBack::~MovieCallBack()
{
    std::erase(m_movie.m_callBacks, this);
}

void MovieCallBack::callMeWhen(Trigger trigger, TimeValue time, std::function<void()> action)
{
    m_trigger = trigger;
    m_time = time;
    m_arming = ++m_movie.m_armings;
    m_action = std::move(action);
}

bool MovieCallBack::isArmedFor(int direction) const
{
    return m_action && (m_trigger == Trigger::TimeForward) == (direction > 0);
}

bool MovieCallBack::isDue(TimeValue time, int direction) const
{
    return m_time == time && isArmedFor(direction);
}

} // namespace platform
