// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Decoded samples are kept by path; a source is taken only while a sound plays, so that any number of sounds
// can exist.
#include "platform/sound/Sound.h"

#include "platform/base/Log.h"
#include "platform/base/RunLoop.h"
#include "platform/sound/AudioDevice.h"
#include "platform/sound/SoundFile.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace platform
{
namespace
{

// A file's samples, and the device's copy of them, made when they are first played there.
class Clip
{
public:
    explicit Clip(std::filesystem::path file) : m_file(std::move(file)) {}

    bool isDecoded() const { return m_isDecoded; } // as far as it can be
    void decode();

    // Starts the source with it; false without a device, or when there is nothing to be heard.
    bool startOn(AudioSource& source);

private:
    std::filesystem::path m_file;
    bool m_isDecoded = false;
    int m_sampleRate = 0;
    std::vector<std::int16_t> m_stereo;
    AudioBuffer m_buffer;
};

void Clip::decode()
{
    m_isDecoded = true;
    auto sound = SoundFile::open(m_file);
    if (!sound)
    {
        LogFormat("cannot decode the sound %s", m_file.c_str());
        return;
    }
    m_sampleRate = sound->sampleRate();
    m_stereo.resize(2 * static_cast<std::size_t>(sound->duration()));
    sound->read(0, m_stereo);
}

bool Clip::startOn(AudioSource& source)
{
    bool const hasBuffer = m_buffer.isAlive() || (!m_stereo.empty() && m_buffer.fill(m_stereo, m_sampleRate));
    if (!hasBuffer || !source.acquire())
    {
        return false;
    }
    alSourcei(source.get(), AL_BUFFER, static_cast<ALint>(m_buffer.get()));
    alSourcePlay(source.get());
    return true;
}

} // namespace

struct Sound::Voice
{
    explicit Voice(Clip& sharedClip) : clip(sharedClip) {}

    bool start();
    void stop();
    bool isPlaying() const;

    Clip& clip;
    AudioSource source;
    bool isWaiting = false; // for its clip

private:
    // The voices that hold a source. Who has played to the end gives it back when the next one starts.
    static std::vector<Voice*>& holders()
    {
        static std::vector<Voice*>& all = *new std::vector<Voice*>;
        return all;
    }
};

bool Sound::Voice::start()
{
    // Asked in this order: a device that went away takes its sources with it.
    if (!AudioDevice::shared().isReady() || isPlaying())
    {
        return false;
    }
    std::erase_if(holders(),
                  [](Voice* voice)
                  {
                      bool const hasEnded = !voice->isPlaying();
                      if (hasEnded)
                      {
                          voice->source.release();
                      }
                      return hasEnded;
                  });
    bool const hasStarted = clip.startOn(source);
    if (hasStarted)
    {
        holders().push_back(this);
    }
    return hasStarted;
}

void Sound::Voice::stop()
{
    source.release();
    std::erase(holders(), this);
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

// Every file that was asked for, and who waits for one to be decoded. That happens in the run loop's next
// pass: loading the codecs and opening the device keep the first frame from nobody's eyes.
class Sound::Library
{
public:
    // Never destroyed: sounds in other statics may still be let go of after it.
    static Library& shared()
    {
        static Library& library = *new Library;
        return library;
    }

    // Null when there is no such file.
    Clip* clip(std::filesystem::path const& file)
    {
        std::error_code error;
        auto known = m_clips.find(file);
        if (known == m_clips.end() && std::filesystem::is_regular_file(file, error))
        {
            known = m_clips.try_emplace(file, file).first;
            decodeLater();
        }
        return known != m_clips.end() ? &known->second : nullptr;
    }

    void wait(Voice& voice)
    {
        voice.isWaiting = true;
        m_waiting.push_back(&voice);
    }

    void forget(Voice& voice)
    {
        voice.isWaiting = false;
        std::erase(m_waiting, &voice);
    }

private:
    void decodeLater()
    {
        if (!m_timer)
        {
            m_timer = Timer::scheduledTimer(0.0, [this] { decode(); });
        }
    }

    void decode()
    {
        std::exchange(m_timer, nullptr)->invalidate();
        for (auto& [file, clip] : m_clips)
        {
            if (!clip.isDecoded())
            {
                clip.decode();
            }
        }
        for (Voice* const voice : std::exchange(m_waiting, {}))
        {
            voice->isWaiting = false;
            voice->start();
        }
    }

    std::map<std::filesystem::path, Clip> m_clips;
    std::vector<Voice*> m_waiting;
    std::shared_ptr<Timer> m_timer;
};

Sound::Sound(std::unique_ptr<Voice> voice) : m_voice(std::move(voice))
{
}

Sound::~Sound()
{
    stop();
}

std::unique_ptr<Sound> Sound::initWithContentsOfFile(std::filesystem::path const& file)
{
    Clip* const clip = Library::shared().clip(file);
    if (clip == nullptr)
    {
        LogFormat("cannot read the sound %s", file.c_str());
        return nullptr;
    }
    return std::unique_ptr<Sound>(new Sound(std::make_unique<Voice>(*clip)));
}

bool Sound::play()
{
    if (m_voice->clip.isDecoded())
    {
        return m_voice->start();
    }
    bool const isFirst = !m_voice->isWaiting;
    if (isFirst)
    {
        Library::shared().wait(*m_voice);
    }
    return isFirst;
}

void Sound::stop()
{
    Library::shared().forget(*m_voice);
    m_voice->stop();
}

bool Sound::isPlaying() const
{
    return m_voice->isWaiting || m_voice->isPlaying();
}

} // namespace platform
