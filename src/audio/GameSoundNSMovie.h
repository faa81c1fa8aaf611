// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Adapter between the playlist and the movie of a music track. A missing file makes a silent adapter and one
// log line.
#pragma once

#include <memory>

class CBMovie;

class GameSoundNSMovie
{
public:
    // fileName: with its extension, in the resources' "Music" folder. The track repeats until it is stopped.
    explicit GameSoundNSMovie(char const* fileName);
    ~GameSoundNSMovie(); // stops it
    GameSoundNSMovie(GameSoundNSMovie const&) = delete;
    GameSoundNSMovie& operator=(GameSoundNSMovie const&) = delete;

    void Play(); // a playing track is left alone
    void Stop(); // and rewinds
    bool IsPlaying() const;
    void SetVolume(float volume); // 0..1

private:
    std::shared_ptr<CBMovie> m_movie;
};
