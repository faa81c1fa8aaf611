// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Effects as they are heard through a loopback device.
#include "platform/sound/Sound.h"

#include "platform/base/RunLoop.h"
#include "TestMedia.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace testing;
using namespace testmedia;
using platform::Sound;

namespace
{

class SoundTest : public Test
{
protected:
    std::filesystem::path aiff(std::string const& name, Samples const& samples, int channels = 1)
    {
        WriteAiff(m_folder / name, samples, channels);
        return m_folder / name;
    }

    // Decoded, as after the run loop's next pass.
    static std::unique_ptr<Sound> open(std::filesystem::path const& file)
    {
        auto sound = Sound::initWithContentsOfFile(file);
        platform::RunLoop::current().runTimersOnce(platform::RunLoop::Mode::Default);
        return sound;
    }

    Samples hear(int samples)
    {
        Samples heard;
        for (float const sample : m_loopback.render(samples))
        {
            heard.push_back(static_cast<std::int16_t>(std::lround(sample)));
        }
        return heard;
    }

    Folder m_folder;
    Loopback m_loopback;
};

Samples Steps(int count)
{
    Samples samples;
    for (int i = 0; i < count; ++i)
    {
        samples.push_back(static_cast<std::int16_t>(1000 + i));
    }
    return samples;
}

} // namespace

TEST_F(SoundTest, PlaysTheFilesOwnSamplesAtFullLevel)
{
    auto const sound = open(aiff("steps.aiff", Steps(1000)));
    ASSERT_TRUE(sound);
    EXPECT_TRUE(sound->play());
    Samples const heard = hear(1100);
    for (std::size_t i = 0; i < 1000; ++i)
    {
        ASSERT_EQ(heard[2 * i], static_cast<int>(1000 + i));
        ASSERT_EQ(heard[2 * i + 1], static_cast<int>(1000 + i));
    }
    EXPECT_THAT(Samples(heard.begin() + 2000, heard.end()), Each(0));
}

TEST_F(SoundTest, SecondTriggerWhileItPlaysIsLost)
{
    auto const sound = open(aiff("steps.aiff", Steps(1000)));
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_TRUE(sound->play());
    hear(500);
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_FALSE(sound->play());
    EXPECT_EQ(hear(1)[0], 1500) << "it started again";
    hear(1000);
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_TRUE(sound->play());
    EXPECT_EQ(hear(1)[0], 1000);
}

TEST_F(SoundTest, StopSilencesAndDestructionDoes)
{
    auto const file = aiff("steps.aiff", Steps(5000));
    auto sound = open(file);
    sound->play();
    hear(100);
    sound->stop();
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_THAT(hear(100), Each(0));
    sound->play();
    EXPECT_EQ(hear(1)[0], 1000);
    sound.reset();
    EXPECT_THAT(hear(100), Each(0));
}

TEST_F(SoundTest, DifferentHandlesOfOneFileSoundTogether)
{
    auto const file = aiff("steps.aiff", Steps(1000));
    auto const first = open(file);
    auto const second = open(file);
    EXPECT_TRUE(first->play());
    EXPECT_TRUE(second->play());
    EXPECT_EQ(hear(1)[0], 2000);
}

TEST_F(SoundTest, FileIsDecodedOnceARun)
{
    auto const file = aiff("steps.aiff", Steps(1000));
    auto const first = open(file);
    std::filesystem::remove(file);
    auto const second = open(file);
    ASSERT_TRUE(second);
    EXPECT_TRUE(second->play());
    EXPECT_EQ(hear(1)[0], 1000);
}

TEST_F(SoundTest, ThousandsOfHandlesUseUpNothing)
{
    auto const file = aiff("short.aiff", Steps(100));
    std::vector<std::unique_ptr<Sound>> sounds;
    for (int i = 0; i < 3000; ++i)
    {
        sounds.push_back(open(file));
        ASSERT_TRUE(sounds.back()->play()) << i;
        hear(150);
    }
}

TEST_F(SoundTest, WithoutADeviceItIsSilentAndAReturnedOneSounds)
{
    auto const sound = open(aiff("steps.aiff", Steps(1000)));
    sound->play();
    m_loopback.unplug();
    EXPECT_FALSE(sound->play());
    EXPECT_FALSE(sound->isPlaying());
    sound->stop();
    m_loopback.plugIn();
    EXPECT_TRUE(sound->play());
    EXPECT_EQ(hear(1)[0], 1000);
}

TEST_F(SoundTest, MissingDeviceIsAskedForOnceInAWhile)
{
    auto const sound = open(aiff("steps.aiff", Steps(1000)));
    int tries = 0;
    platform::AudioDevice::shared().setOpening({[&]() -> ALCdevice*
                                                {
                                                    ++tries;
                                                    return nullptr;
                                                },
                                                {}});
    for (int i = 0; i < 1000; ++i)
    {
        EXPECT_FALSE(sound->play());
    }
    EXPECT_EQ(tries, 1);
    m_loopback.plugIn();
}

TEST_F(SoundTest, WhatIsPlayedBeforeItIsDecodedSoundsAfterTheNextPass)
{
    auto const sound = Sound::initWithContentsOfFile(aiff("steps.aiff", Steps(1000)));
    ASSERT_TRUE(sound);
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_TRUE(sound->play());
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_FALSE(sound->play()) << "it plays twice";
    EXPECT_EQ(hear(1)[0], 0) << "decoded at once";
    platform::RunLoop::current().runTimersOnce(platform::RunLoop::Mode::Default);
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_EQ(hear(1)[0], 1000);
}

TEST_F(SoundTest, WhatIsStoppedOrGoneBeforeItIsDecodedStaysSilent)
{
    auto const file = aiff("steps.aiff", Steps(1000));
    auto const stopped = Sound::initWithContentsOfFile(file);
    auto gone = Sound::initWithContentsOfFile(file);
    EXPECT_TRUE(stopped->play());
    EXPECT_TRUE(gone->play());
    stopped->stop();
    EXPECT_FALSE(stopped->isPlaying());
    gone.reset();
    platform::RunLoop::current().runTimersOnce(platform::RunLoop::Mode::Default);
    EXPECT_EQ(hear(1)[0], 0);
}

TEST_F(SoundTest, MissingFileGivesNullAndOneLineThatNamesIt)
{
    for (char const* const name : {"missing.aiff", "."})
    {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(open(m_folder / name)) << name;
        std::string const said = testing::internal::GetCapturedStderr();
        EXPECT_THAT(said, HasSubstr((m_folder / name).string()));
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    }
}

TEST_F(SoundTest, UndecodableFileIsSilentWithOneLineThatNamesIt)
{
    WriteBytes(m_folder / "text.aiff", std::string(4000, 'a'));
    testing::internal::CaptureStderr();
    auto const sound = open(m_folder / "text.aiff");
    EXPECT_FALSE(sound->play());
    EXPECT_FALSE(sound->isPlaying());
    std::string const said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, HasSubstr((m_folder / "text.aiff").string()));
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}
