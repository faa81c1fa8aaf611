// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Adapter between GameSound and the platform's sound. A missing file makes a silent adapter.
#pragma once

#include <memory>

namespace platform
{
class Sound;
}

class GameSoundNSSound
{
public:
    // fileName: with its extension, in the resources' "Sounds" folder.
    explicit GameSoundNSSound(char const* fileName);
    ~GameSoundNSSound();
    GameSoundNSSound(GameSoundNSSound const&) = delete;
    GameSoundNSSound& operator=(GameSoundNSSound const&) = delete;

    void Play(); // a trigger while the sound still plays is lost
    void Stop();
    bool IsPlaying() const;

private:
    std::unique_ptr<platform::Sound> m_sound;
};
