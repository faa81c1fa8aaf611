// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSound.h"

#include "audio/GameSoundNSSound.h"

#include <map>
#include <string>

namespace
{

GameSoundNSSound* SharedAdapter(char const* fileName)
{
    static std::map<std::string, GameSoundNSSound> adapters;
    return &adapters.try_emplace(fileName, fileName).first->second;
}

} // namespace

bool GameSound::fSoundOn = true;

GameSound::GameSound(char const* fileName) : m_adapter(SharedAdapter(fileName))
{
}

void GameSound::Play() const
{
    if (fSoundOn)
    {
        m_adapter->Play();
    }
}

void GameSound::SetVolume(bool on)
{
    fSoundOn = on;
}

bool GameSound::IsPlaying() const
{
    return m_adapter->IsPlaying();
}
