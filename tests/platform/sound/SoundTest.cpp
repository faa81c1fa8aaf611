// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Effects as they are heard through a loopback device.
#include "platform/sound/Sound.h"

#include "platform/base/RunLoop.h"
#include "support/CapturedLog.h"
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

    Samples hear(int samples) { return m_loopback.render(samples); }

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
    auto const sound = Sound::initWithContentsOfFile(aiff("steps.aiff", Steps(1000)));
    ASSERT_TRUE(sound);
    EXPECT_TRUE(sound->play());
    Samples const heard = hear(1000);
    for (std::size_t i = 0; i < 1000; ++i)
    {
        ASSERT_EQ(heard[2 * i], static_cast<int>(1000 + i));
        ASSERT_EQ(heard[2 * i + 1], static_cast<int>(1000 + i));
    }
    EXPECT_THAT(AfterFade(hear(1000)), Each(0));
}

TEST_F(SoundTest, SecondTriggerWhileItPlaysIsLost)
{
    auto const sound = Sound::initWithContentsOfFile(aiff("steps.aiff", Steps(1000)));
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_TRUE(sound->play());
    hear(500);
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_FALSE(sound->play());
    EXPECT_EQ(hear(1)[0], 1500) << "it started again";
    hear(1000 + kFade);
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_TRUE(sound->play());
    EXPECT_EQ(hear(1)[0], 1000);
}

TEST_F(SoundTest, StopSilencesAndDestructionDoes)
{
    auto const file = aiff("steps.aiff", Steps(5000));
    auto sound = Sound::initWithContentsOfFile(file);
    sound->play();
    hear(100);
    sound->stop();
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_THAT(AfterFade(hear(1000)), Each(0));
    sound->play();
    EXPECT_EQ(hear(1)[0], 1000);
    sound.reset();
    EXPECT_THAT(AfterFade(hear(1000)), Each(0));
}

TEST_F(SoundTest, DifferentHandlesOfOneFileSoundTogether)
{
    auto const file = aiff("steps.aiff", Steps(1000));
    auto const first = Sound::initWithContentsOfFile(file);
    auto const second = Sound::initWithContentsOfFile(file);
    EXPECT_TRUE(first->play());
    EXPECT_TRUE(second->play());
    EXPECT_EQ(hear(1)[0], 2000);
}

TEST_F(SoundTest, FileIsReadOnceAndForAll)
{
    auto const file = aiff("steps.aiff", Steps(1000));
    auto const sound = Sound::initWithContentsOfFile(file);
    std::filesystem::remove(file);
    EXPECT_TRUE(sound->play());
    EXPECT_EQ(hear(1)[0], 1000);
}

TEST_F(SoundTest, SoundsThatAreGoneUseUpNothing)
{
    auto const file = aiff("short.aiff", Steps(100));
    for (int i = 0; i < 1000; ++i) // the device has 256 sources
    {
        ASSERT_TRUE(Sound::initWithContentsOfFile(file)->play()) << i;
    }
}

TEST_F(SoundTest, WithoutADeviceItIsSilentAndAReturnedOneSounds)
{
    auto const sound = Sound::initWithContentsOfFile(aiff("steps.aiff", Steps(1000)));
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
    auto const sound = Sound::initWithContentsOfFile(aiff("steps.aiff", Steps(1000)));
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

TEST_F(SoundTest, TryThatTakesLongIsNotRepeatedAtOnce)
{
    auto const sound = Sound::initWithContentsOfFile(aiff("steps.aiff", Steps(1000)));
    int tries = 0;
    std::uint64_t const start = platform::UpTime();
    double seconds = 0.0; // since the start
    platform::AudioDevice::Opening opening;
    opening.open = [&]() -> ALCdevice*
    {
        ++tries;
        seconds += 3.5;
        return nullptr;
    };
    opening.now = [&] { return start + static_cast<std::uint64_t>(seconds * 1e9); };
    platform::AudioDevice::shared().setOpening(opening);
    for (double const wait : {0.0, 0.1, 2.8})
    {
        seconds += wait;
        EXPECT_FALSE(sound->play());
        EXPECT_EQ(tries, 1);
    }
    seconds += 0.2;
    EXPECT_FALSE(sound->play());
    EXPECT_EQ(tries, 2);
    m_loopback.plugIn();
}

// In a process of its own, which has not opened the device yet.
TEST(FirstSoundTest, StartsInTheNextPassUnlessItIsStoppedBefore)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            Folder const folder;
            WriteAiff(folder / "steps.aiff", Samples(44100, 1), 1);
            auto const sound = Sound::initWithContentsOfFile(folder / "steps.aiff");
            auto const stopped = Sound::initWithContentsOfFile(folder / "steps.aiff");
            auto gone = Sound::initWithContentsOfFile(folder / "steps.aiff");
            bool const play = sound->play() && stopped->play() && gone->play();
            bool const playTwice = sound->play();
            stopped->stop();
            gone.reset();
            bool const waits = sound->isPlaying() && !stopped->isPlaying();
            bool const isUntried = platform::AudioDevice::shared().isUntried();
            platform::RunLoop::runTimersOnce();
            bool const isTried = !platform::AudioDevice::shared().isUntried();
            bool const plays = sound->isPlaying() && !stopped->isPlaying();
            std::exit(play && !playTwice && waits && isUntried && isTried && plays ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(SoundTest, FileThatCannotBeDecodedGivesNullAndOneLineThatNamesIt)
{
    WriteBytes(m_folder / "text.aiff", std::string(4000, 'a'));
    for (char const* const name : {"missing.aiff", "text.aiff", "."})
    {
        CapturedLog log;
        EXPECT_FALSE(Sound::initWithContentsOfFile(m_folder / name)) << name;
        EXPECT_THAT(log.allLines(), ElementsAre(HasSubstr((m_folder / name).string())));
    }
}
