// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/FrozenSound.h"

#include "audio/GameSound.h"
#include "platform/sound/AudioDevice.h"

#include <AL/alext.h>

namespace
{

// A loopback device advances only when samples are taken from it, which no test does.
ALCdevice* OpenLoopback()
{
    auto const open = reinterpret_cast<LPALCLOOPBACKOPENDEVICESOFT>(
        alcGetProcAddress(nullptr, "alcLoopbackOpenDeviceSOFT"));
    return open(nullptr);
}

} // namespace

namespace frozen
{

void Silence()
{
    platform::AudioDevice::shared().setOpening(
        {OpenLoopback,
         {ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT, ALC_FORMAT_TYPE_SOFT, ALC_SHORT_SOFT, ALC_FREQUENCY,
          44100}});
}

bool Plays(char const* fileName)
{
    return GameSound(fileName).IsPlaying();
}

} // namespace frozen
