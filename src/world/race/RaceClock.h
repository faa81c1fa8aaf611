// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The clock of a race: either the race runs, or it is paused. Times in seconds.
#pragma once

class RaceClock
{
public:
    void Pause() { m_isPaused = true; }
    void Unpause() { m_isPaused = false; }
    bool IsPaused() const { return m_isPaused; }

    void AddRaceTime(double dt) { m_raceTime += dt; }
    void AddPausedTime(double dt) { m_pausedTime += dt; }

    double GetRaceTime() const { return m_raceTime; }

    // The race result. By the rules of the race pauses are subtracted, though the race time stands still in
    // them: a pause makes the result better.
    double GetTimeElapsed() const { return m_raceTime - m_pausedTime; }

private:
    double m_raceTime = 0.0;
    double m_pausedTime = 0.0;
    bool m_isPaused = false;
};
