// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// OpenAL Soft mixes in a thread of its own; the game's thread never waits for it.
#include "platform/sound/AudioDevice.h"

#include "platform/base/Log.h"

#include <AL/alext.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace platform
{
namespace
{

constexpr double kSecondsBetweenTries = 3.0;

// Redirects standard error to /dev/null while it lives: sound drivers print lines about missing hardware, and
// the game logs one line of its own. Drivers write to the file descriptor, so that is what it replaces.
class QuietStandardError
{
public:
    QuietStandardError() : m_saved(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3))
    {
        if (m_saved < 0)
        {
            return;
        }
        int const nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        std::fflush(stderr);
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
    ~QuietStandardError()
    {
        std::fflush(stderr);
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
    }
    QuietStandardError(QuietStandardError const&) = delete;
    QuietStandardError& operator=(QuietStandardError const&) = delete;

private:
    int m_saved; // the real standard error, -1 when it is closed
};

bool FailedSinceLastAsked()
{
    return alGetError() != AL_NO_ERROR;
}

} // namespace

// Never destroyed: sounds and movies in other statics release their names after main().
AudioDevice& AudioDevice::shared()
{
    static AudioDevice& device = *new AudioDevice;
    return device;
}

// OpenAL complains about a device that is still open when the program ends.
AudioDevice::AudioDevice() : m_opening(systemOpening())
{
    std::atexit([] { shared().close(); });
}

AudioDevice::Opening AudioDevice::systemOpening()
{
    Opening opening;
    opening.open = []
    {
        // A user who sets this variable wants to read the library's messages.
        std::optional<QuietStandardError> quiet;
        if (std::getenv("ALSOFT_LOGLEVEL") == nullptr)
        {
            quiet.emplace();
        }
        return alcOpenDevice(nullptr);
    };
    // All our sounds have this rate, and the system's resampler is better than OpenAL's. No head-related
    // filter (HRTF), no effects.
    opening.attributes = {ALC_FREQUENCY, 44100, ALC_HRTF_SOFT, ALC_FALSE, ALC_MAX_AUXILIARY_SENDS, 0};
    return opening;
}

bool AudioDevice::isReady()
{
    m_isUntried = false;
    if (m_device != nullptr && !m_opening.isConnected(m_device))
    {
        close();
    }
    if (m_device == nullptr)
    {
        open();
    }
    return m_device != nullptr;
}

void AudioDevice::setOpening(Opening opening)
{
    close();
    m_opening = std::move(opening);
    m_isUntried = false;
    m_lastTry = 0;
}

void AudioDevice::open()
{
    if (m_lastTry != 0 && SecondsBetween(m_lastTry, m_opening.now()) < kSecondsBetweenTries)
    {
        return;
    }
    m_device = m_opening.open();
    std::vector<ALCint> attributes = m_opening.attributes;
    attributes.push_back(0);
    m_context = m_device != nullptr ? alcCreateContext(m_device, attributes.data()) : nullptr;
    if (m_context == nullptr || alcMakeContextCurrent(m_context) != ALC_TRUE)
    {
        close();
        m_lastTry = m_opening.now(); // not its begin: a try may take longer than the time between two
        if (!std::exchange(m_saidMissing, true))
        {
            Log("no sound device: playing without sound");
        }
        return;
    }
    m_saidMissing = false;
    m_lastTry = 0;
}

void AudioDevice::close()
{
    ++m_generation;
    alcMakeContextCurrent(nullptr);
    if (m_context != nullptr)
    {
        alcDestroyContext(std::exchange(m_context, nullptr));
    }
    if (m_device != nullptr)
    {
        alcCloseDevice(std::exchange(m_device, nullptr));
    }
}

// A library without this query leaves the value as it is.
bool AudioDevice::answersAsConnected(ALCdevice* device)
{
    ALCint connected = ALC_TRUE;
    alcGetIntegerv(device, ALC_CONNECTED, 1, &connected);
    return connected != ALC_FALSE;
}

void AudioName::set(ALuint name)
{
    m_name = name;
    m_generation = AudioDevice::shared().generation();
}

bool AudioSource::acquire()
{
    if (isAlive())
    {
        return true;
    }
    ALuint source = 0;
    if (!AudioDevice::shared().isReady())
    {
        return false;
    }
    alGetError();
    alGenSources(1, &source);
    if (FailedSinceLastAsked())
    {
        return false;
    }
    set(source);
    alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
    alSourcei(source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
    return true;
}

void AudioSource::release()
{
    if (isAlive())
    {
        ALuint const source = get();
        alDeleteSources(1, &source);
    }
    set(0);
}

bool AudioBuffer::fill(std::span<std::int16_t const> samples, int sampleRate)
{
    if (!AudioDevice::shared().isReady())
    {
        return false;
    }
    alGetError();
    if (!isAlive())
    {
        ALuint buffer = 0;
        alGenBuffers(1, &buffer);
        set(FailedSinceLastAsked() ? 0 : buffer);
    }
    if (get() == 0)
    {
        return false;
    }
    alBufferData(get(), AL_FORMAT_STEREO16, samples.data(), static_cast<ALsizei>(samples.size_bytes()),
                 sampleRate);
    return !FailedSinceLastAsked();
}

void AudioBuffer::release()
{
    if (isAlive())
    {
        ALuint const buffer = get();
        alDeleteBuffers(1, &buffer);
    }
    set(0);
}

} // namespace platform
