// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSoundNSSound.h"

#include "platform/base/Bundle.h"
#include "platform/base/Log.h"
#include "platform/sound/Sound.h"

GameSoundNSSound::GameSoundNSSound(char const* fileName)
{
    auto const path = platform::Bundle::pathForResource(fileName, "Sounds");
    if (!path)
    {
        platform::LogFormat("The sound %s is missing", fileName);
        return;
    }
    m_sound = platform::Sound::initWithContentsOfFile(*path);
}

GameSoundNSSound::~GameSoundNSSound() = default;

void GameSoundNSSound::Play()
{
    if (m_sound)
    {
        m_sound->play();
    }
}

void GameSoundNSSound::Stop()
{
    if (m_sound)
    {
        m_sound->stop();
    }
}

bool GameSoundNSSound::IsPlaying() const
{
    return m_sound && m_sound->isPlaying();
}
