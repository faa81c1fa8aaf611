// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A short sound that plays by itself. Its file stays open, and is decoded when it first sounds on a device.
// Without a sound device everything stays silent: play() answers false.
#pragma once

#include <filesystem>
#include <memory>

namespace platform
{

class Sound
{
public:
    // Null, with one log line that names the file, when that cannot be decoded.
    static std::unique_ptr<Sound> initWithContentsOfFile(std::filesystem::path const& file);
    ~Sound(); // it falls silent
    Sound(Sound const&) = delete;
    Sound& operator=(Sound const&) = delete;

    // Starts from the beginning. False, and nothing changes, while it plays or without a device. The first
    // sound of a run starts in the run loop's next pass, and counts as playing until then.
    bool play();
    void stop();
    bool isPlaying() const;

private:
    struct Voice;
    explicit Sound(std::unique_ptr<Voice> voice);
    bool playInNextPass();

    std::unique_ptr<Voice> m_voice;
};

} // namespace platform
