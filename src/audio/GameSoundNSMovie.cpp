// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSoundNSMovie.h"

#include "audio/CBMovie.h"
#include "platform/base/Bundle.h"
#include "platform/base/Encoding.h"

GameSoundNSMovie::GameSoundNSMovie(char const* fileName)
{
    auto const url = platform::FileURLWithPath(platform::Bundle::placeOfResource(fileName, "Music"));
    m_movie = url ? CBMovie::initWithURL(*url, false) : nullptr;
    if (m_movie)
    {
        m_movie->setLoopMode(kLoopNormal);
    }
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
