// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The playlist: four tracks, of which each race plays the next, over and over until it ends. The place in the
// list survives between runs. A GameMusic itself is one track.
#pragma once

#include <array>
#include <memory>

class GameSoundNSMovie;

class GameMusic
{
public:
    static constexpr int kTrackCount = 4;

    static void InitTracks(); // opens the four tracks, once
    static void StartTrack(); // the next one, from its beginning
    static void StopTrack();
    static void SetTrackVolume(float volume); // 0..1, for the current track and all to come

    static GameMusic* GetTrack(int index) { return apMusic[static_cast<std::size_t>(index)]; }
    static int GetCurrentTrack() { return itrackCurrent; } // -1 before the first

    explicit GameMusic(char const* fileName);
    ~GameMusic();
    GameMusic(GameMusic const&) = delete;
    GameMusic& operator=(GameMusic const&) = delete;

    void Play();
    void Stop();
    void SetVolume(float volume);
    bool IsPlaying() const;

private:
    static bool HasCurrentTrack();

    static std::array<GameMusic*, kTrackCount> apMusic; // live until the process ends
    static bool fInited;
    static int itrackCurrent;
    static float fltVolume;

    std::unique_ptr<GameSoundNSMovie> m_movie;
};
