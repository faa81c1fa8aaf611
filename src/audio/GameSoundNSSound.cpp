// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSoundNSSound.h"

#include "platform/base/Bundle.h"
#include "platform/sound/Sound.h"

GameSoundNSSound::GameSoundNSSound(char const* fileName)
    : m_sound(platform::Sound::initWithContentsOfFile(platform::Bundle::placeOfResource(fileName, "Sounds")))
{
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
