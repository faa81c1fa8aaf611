// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One sound effect, as the game, the world and the menus hold it. All effects share one switch.
#pragma once

class GameSoundNSSound;

class GameSound
{
public:
    // fileName: with its extension, in the resources' "Sounds" folder. All who name the same file share one
    // adapter, which lives until the process ends: a new race costs no new sounds.
    explicit GameSound(char const* fileName);

    void Play() const; // nothing while effects are off

    // On or off for all effects; there is no other volume.
    static void SetVolume(bool on);
    static bool IsOn() { return fSoundOn; }

    bool IsPlaying() const;

private:
    // On at every start, whatever the stored "SoundVolume" says. Deliberate.
    static bool fSoundOn;

    GameSoundNSSound* m_adapter;
};
