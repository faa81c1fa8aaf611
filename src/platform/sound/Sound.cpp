// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/sound/Sound.h"

#include "platform/base/Log.h"
#include "platform/base/RunLoop.h"
#include "platform/sound/AudioDevice.h"
#include "platform/sound/SoundFile.h"

#include <utility>

namespace platform
{

struct Sound::Voice
{
    explicit Voice(SoundFile opened) : file(std::move(opened)) {}

    bool start();
    bool isPlaying() const;

    SoundFile file;
    AudioBuffer buffer; // the device's copy, made when it first sounds there
    AudioSource source;
    std::shared_ptr<Timer> nextPass; // set while play() is put off until then
};

bool Sound::Voice::start()
{
    bool const hasBuffer = buffer.isAlive() || buffer.fill(file.readAll(), file.sampleRate());
    if (!hasBuffer || !source.acquire())
    {
        return false;
    }
    alSourcei(source.get(), AL_BUFFER, static_cast<ALint>(buffer.get()));
    alSourcePlay(source.get());
    return true;
}

bool Sound::Voice::isPlaying() const
{
    ALint state = AL_STOPPED;
    if (source.isAlive())
    {
        alGetSourcei(source.get(), AL_SOURCE_STATE, &state);
    }
    return state == AL_PLAYING;
}

Sound::Sound(std::unique_ptr<Voice> voice) : m_voice(std::move(voice))
{
}

Sound::~Sound()
{
    stop();
}

std::unique_ptr<Sound> Sound::initWithContentsOfFile(std::filesystem::path const& file)
{
    auto opened = SoundFile::open(file);
    if (!opened)
    {
        LogFormat("The sound %s cannot be played", file.c_str());
        return nullptr;
    }
    return std::unique_ptr<Sound>(new Sound(std::make_unique<Voice>(std::move(*opened))));
}

bool Sound::play()
{
    AudioDevice& device = AudioDevice::shared();
    if (device.isUntried())
    {
        return playInNextPass();
    }
    // isReady() first: it notices a device that went away, and its sources with it.
    return device.isReady() && !isPlaying() && m_voice->start();
}

// Opening the device takes 12 ms; done after the first frame so that it does not delay it.
bool Sound::playInNextPass()
{
    if (m_voice->nextPass)
    {
        return false;
    }
    m_voice->nextPass = Timer::scheduledTimer(0.0,
                                              [this]
                                              {
                                                  stop();
                                                  m_voice->start();
                                              });
    return true;
}

void Sound::stop()
{
    if (auto const timer = std::exchange(m_voice->nextPass, nullptr))
    {
        timer->invalidate();
    }
    m_voice->source.release();
}

bool Sound::isPlaying() const
{
    return m_voice->nextPass || m_voice->isPlaying();
}

} // namespace platform
