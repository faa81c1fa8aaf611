// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One sound effect. All effects share one switch.
#pragma once

class GameSoundNSSound;

class GameSound
{
public:
    // fileName: with its extension, in the resources' "Sounds" folder. All handles of one file share one
    // adapter, which lives until the process ends, so that a new race decodes nothing.
    explicit GameSound(char const* fileName);

    void Play() const; // nothing while effects are off

    // On or off for all effects; there is no other volume.
    static void SetVolume(bool on);
    static bool IsOn() { return fSoundOn; }

    bool IsPlaying() const;

private:
    // On at every start: the stored "SoundVolume" is not applied then.
    static bool fSoundOn;

    GameSoundNSSound* m_adapter;
};
