// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The one sound device of the program, opened when the first sound is needed, and the OpenAL sources and
// buffers that live in it. A device may be missing, vanish and come back. What was made in one that is gone
// answers false to isAlive(), and its destruction does nothing.
#pragma once

#include "platform/base/Clock.h"

#include <AL/al.h>
#include <AL/alc.h>

#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace platform
{

class AudioDevice
{
public:
    // How a device is opened (null: there is none), its context's attributes up to the closing 0, how to tell
    // whether it is still there, and the clock between two tries. Tests put a loopback device here.
    struct Opening
    {
        std::function<ALCdevice*()> open;
        std::vector<ALCint> attributes;
        std::function<bool(ALCdevice*)> isConnected = answersAsConnected;
        std::function<std::uint64_t()> now = UpTime;
    };

    static AudioDevice& shared();

    // True while a device is there. Without one another try is made some seconds after the last.
    bool isReady();

    // Rises with each device: sources and buffers made under an earlier number are gone.
    std::uint64_t generation() const { return m_generation; }

    // Closes the device; the next isReady() opens one anew, in this way from now on.
    void setOpening(Opening opening);

    // True until a device is asked for, or a way to open one is set.
    bool isUntried() const { return m_isUntried; }

private:
    static bool answersAsConnected(ALCdevice* device);
    static Opening systemOpening();

    AudioDevice();
    void open();
    void close();

    Opening m_opening;
    ALCdevice* m_device = nullptr;
    ALCcontext* m_context = nullptr;
    std::uint64_t m_generation = 0;
    std::uint64_t m_lastTry = 0; // the end of the last failed try, 0 for none
    bool m_isUntried = true;
    bool m_saidMissing = false;
};

// OpenAL's number for a source or a buffer, 0 for none.
class AudioName
{
public:
    AudioName() = default;
    AudioName(AudioName const&) = delete;
    AudioName& operator=(AudioName const&) = delete;

    ALuint get() const { return m_name; }
    bool isAlive() const { return m_name != 0 && m_generation == AudioDevice::shared().generation(); }

protected:
    ~AudioName() = default;
    void set(ALuint name);

private:
    ALuint m_name = 0;
    std::uint64_t m_generation = 0;
};

// A source that plays stereo samples as they are, without a place in space.
class AudioSource : public AudioName
{
public:
    ~AudioSource() { release(); }

    // False without a device, or when it has no source left.
    bool acquire();
    void release(); // falls silent
};

class AudioBuffer : public AudioName
{
public:
    ~AudioBuffer() { release(); }

    // Interleaved stereo samples; false without a device or when memory is refused.
    bool fill(std::span<std::int16_t const> samples, int sampleRate);
    void release();
};

} // namespace platform
