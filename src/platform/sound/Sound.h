// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A short sound that plays by itself. GameSoundNSSound is the caller.
// A file is decoded once per run, in the run loop's next pass, and its samples are shared by all who open it.
// Without a sound device everything stays silent: play() answers false.
#pragma once

#include <filesystem>
#include <memory>

namespace platform
{

class Sound
{
public:
    // Null, with one log line that names the file, when there is no such file. One that turns out not to
    // decode is silent, with one line as well.
    static std::unique_ptr<Sound> initWithContentsOfFile(std::filesystem::path const& file);
    ~Sound(); // it falls silent
    Sound(Sound const&) = delete;
    Sound& operator=(Sound const&) = delete;

    // Starts from the beginning, or as soon as it is decoded, and counts as playing until then. False, and
    // nothing changes, while it plays or without a device.
    bool play();
    void stop();
    bool isPlaying() const;

private:
    class Library;
    struct Voice;
    explicit Sound(std::unique_ptr<Voice> voice);
    std::unique_ptr<Voice> m_voice;
};

} // namespace platform
