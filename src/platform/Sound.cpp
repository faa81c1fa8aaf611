// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Decoded samples are kept by path; a source is taken only while a sound plays, so that any number of sounds
// can exist.
#include "platform/Sound.h"

#include "platform/AudioDevice.h"
#include "platform/AudioTrack.h"
#include "platform/Log.h"
#include "platform/MediaFile.h"

#include <algorithm>
#include <map>
#include <vector>

namespace platform
{
namespace
{

constexpr std::int64_t kLongest = 600;                              // seconds
constexpr std::int64_t kMostSamples = (std::int64_t{64} << 20) / 4; // 64 MiB of stereo

// A file's samples, and the device's copy of them, made when they are first played there.
struct Clip
{
    int sampleRate = 0;
    std::vector<std::int16_t> stereo;
    AudioBuffer buffer;
};

std::unique_ptr<Clip> DecodeClip(std::filesystem::path const& file)
{
    auto const media = MediaFile::open(file);
    if (!media || !media->audio || media->duration > std::min(kMostSamples, kLongest * media->scale))
    {
        return nullptr;
    }
    auto const track = AudioTrack::open(*media->audio);
    if (!track)
    {
        return nullptr;
    }
    auto clip = std::make_unique<Clip>();
    clip->sampleRate = media->audio->sampleRate;
    clip->stereo.resize(2 * static_cast<std::size_t>(media->duration));
    track->read(0, clip->stereo);
    return clip;
}

// Null, as well kept for the run, for a file that does not decode.
Clip* SharedClip(std::filesystem::path const& file)
{
    static std::map<std::filesystem::path, std::unique_ptr<Clip>> clips;
    auto const [entry, isNew] = clips.try_emplace(file);
    if (isNew)
    {
        entry->second = DecodeClip(file);
        if (!entry->second)
        {
            LogFormat("cannot decode the sound %s", file.c_str());
        }
    }
    return entry->second.get();
}

} // namespace

struct Sound::Voice
{
    explicit Voice(Clip* sharedClip) : clip(sharedClip) {}

    Clip* clip;
    AudioSource source;

    bool isPlaying() const
    {
        ALint state = AL_STOPPED;
        if (source.isAlive())
        {
            alGetSourcei(source.get(), AL_SOURCE_STATE, &state);
        }
        return state == AL_PLAYING;
    }

    // The voices that hold a source. Who has played to the end gives it back when the next one starts.
    static std::vector<Voice*>& holders()
    {
        static std::vector<Voice*>& all = *new std::vector<Voice*>;
        return all;
    }
    static void reclaimSources()
    {
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
    }
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
    Clip* const clip = SharedClip(file);
    return clip != nullptr ? std::unique_ptr<Sound>(new Sound(std::make_unique<Voice>(clip))) : nullptr;
}

bool Sound::play()
{
    if (!AudioDevice::shared().isReady() || isPlaying())
    {
        return false;
    }
    Voice::reclaimSources();
    Clip& clip = *m_voice->clip;
    bool const hasBuffer = clip.buffer.isAlive() || clip.buffer.fill(clip.stereo, clip.sampleRate);
    if (!hasBuffer || !m_voice->source.acquire())
    {
        return false;
    }
    Voice::holders().push_back(m_voice.get());
    alSourcei(m_voice->source.get(), AL_BUFFER, static_cast<ALint>(clip.buffer.get()));
    alSourcePlay(m_voice->source.get());
    return true;
}

void Sound::stop()
{
    m_voice->source.release();
    std::erase(Voice::holders(), m_voice.get());
}

bool Sound::isPlaying() const
{
    return m_voice->isPlaying();
}

} // namespace platform
