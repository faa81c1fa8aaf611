// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Tells when a movie's time reaches a value while it plays: once for each callMeWhen(), inside a call of the
// movie.
#pragma once

#include <cstdint>
#include <functional>

namespace platform
{

class Movie;

using TimeValue = std::int32_t; // in samples

class MovieCallBack
{
public:
    enum class Trigger
    {
        TimeForward,
        TimeBackward,
    };

    explicit MovieCallBack(Movie& movie); // the movie lives longer
    ~MovieCallBack();                     // may run within its own action
    MovieCallBack(MovieCallBack const&) = delete;
    MovieCallBack& operator=(MovieCallBack const&) = delete;

    void callMeWhen(Trigger trigger, TimeValue time, std::function<void()> action);

private:
    friend class Movie;
    bool isArmedFor(int direction) const;
    bool isDue(TimeValue time, int direction) const;

    Movie& m_movie;
    Trigger m_trigger = Trigger::TimeForward;
    TimeValue m_time = 0;
    std::uint64_t m_arming = 0;     // the number of its last arming among all of the movie
    std::function<void()> m_action; // empty unless it is armed
};

} // namespace platform
