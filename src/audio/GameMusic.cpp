// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameMusic.h"

#include "audio/GameSoundNSMovie.h"
#include "settings/GameSettings.h"

namespace
{

struct PlaylistEntry
{
    char const* fileName;
    float factor; // evens out the tracks' loudness
};
constexpr PlaylistEntry kPlaylist[GameMusic::kTrackCount] = {
    {"Sable.mp3", 1.0F},
    {"Electro0032.mp3", 0.5F},
    {"SerialK.mp3", 0.7F},
    {"Aai_Tookai.mp3", 0.7F},
};

} // namespace

std::array<GameMusic*, GameMusic::kTrackCount> GameMusic::apMusic{};
bool GameMusic::fInited = false;
int GameMusic::itrackCurrent = -1;
float GameMusic::fltVolume = 1.0F;

// The stored index may be any number until the first race takes its remainder.
bool GameMusic::HasCurrentTrack()
{
    return itrackCurrent > -1 && itrackCurrent < kTrackCount;
}

void GameMusic::InitTracks()
{
    if (fInited)
    {
        return;
    }
    for (std::size_t i = 0; i < apMusic.size(); ++i)
    {
        apMusic[i] = new GameMusic(kPlaylist[i].fileName);
    }
    itrackCurrent = GameSettings::GetIntParam(setting::kMusicLastTrackIndex);
    fInited = true;
}

// The remainder keeps the sign of a stored index: below zero there is no track, and the race is silent.
void GameMusic::StartTrack()
{
    InitTracks();
    itrackCurrent = static_cast<int>((static_cast<long long>(itrackCurrent) + 1) % kTrackCount);
    GameSettings::SetIntParam(setting::kMusicLastTrackIndex, itrackCurrent);
    if (HasCurrentTrack() && fltVolume > 0.0F)
    {
        SetTrackVolume(fltVolume);
        GetTrack(itrackCurrent)->Play();
    }
}

// At volume 0 nothing was started, so nothing is stopped.
void GameMusic::StopTrack()
{
    if (HasCurrentTrack() && fltVolume > 0.0F)
    {
        GetTrack(itrackCurrent)->Stop();
    }
}

void GameMusic::SetTrackVolume(float volume)
{
    fltVolume = volume;
    if (HasCurrentTrack())
    {
        GetTrack(itrackCurrent)->SetVolume(volume * kPlaylist[itrackCurrent].factor);
    }
}

GameMusic::GameMusic(char const* fileName) : m_movie(std::make_unique<GameSoundNSMovie>(fileName))
{
}

GameMusic::~GameMusic() = default;

void GameMusic::Play()
{
    m_movie->Play();
}

void GameMusic::Stop()
{
    m_movie->Stop();
}

void GameMusic::SetVolume(float volume)
{
    m_movie->SetVolume(volume);
}

bool GameMusic::IsPlaying() const
{
    return m_movie->IsPlaying();
}
