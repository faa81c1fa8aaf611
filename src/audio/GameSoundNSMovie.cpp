// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSoundNSMovie.h"

#include "audio/CBMovie.h"
#include "platform/base/Bundle.h"
#include "platform/base/Encoding.h"
#include "platform/base/Log.h"

GameSoundNSMovie::GameSoundNSMovie(char const* fileName)
{
    auto const path = platform::Bundle::pathForResource(fileName, "Music");
    auto const url = path ? platform::FileURLWithPath(*path) : std::nullopt;
    m_movie = url ? CBMovie::initWithURL(*url, false) : nullptr;
    if (!m_movie)
    {
        platform::LogFormat("The music %s cannot be played", fileName);
        return;
    }
    m_movie->setLoopMode(kLoopNormal);
}

GameSoundNSMovie::~GameSoundNSMovie()
{
    Stop();
}

void GameSoundNSMovie::Play()
{
    if (m_movie && !m_movie->isPlaying())
    {
        m_movie->start();
    }
}

void GameSoundNSMovie::Stop()
{
    if (m_movie)
    {
        m_movie->stop();
        m_movie->gotoBeginning();
    }
}

bool GameSoundNSMovie::IsPlaying() const
{
    return m_movie && m_movie->isPlaying();
}

void GameSoundNSMovie::SetVolume(float volume)
{
    if (m_movie)
    {
        m_movie->setVolume(volume);
    }
}
