// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/sound/SoundFile.h"

#include "platform/base/Bundle.h"
#include "TestMedia.h"

#include <gmock/gmock.h>

#include <cstdlib>

using namespace testing;
using namespace testmedia;
using platform::SoundFile;

namespace
{

class SoundFileTest : public Test
{
protected:
    Folder m_folder;
};

Samples Read(SoundFile& file, std::int64_t position, std::size_t samples)
{
    Samples stereo(2 * samples, 99);
    file.read(position, stereo);
    return stereo;
}

// Reads pieces all over the file, each after a seek in a file just opened and one in passing. The largest
// difference to what was read in one go.
int LargestDifferenceAfterSeeks(std::filesystem::path const& path)
{
    constexpr std::size_t kPiece = 500;
    auto whole = SoundFile::open(path);
    auto const length = static_cast<std::size_t>(whole->duration());
    Samples const straight = Read(*whole, 0, length);
    int largest = 0;
    for (std::size_t at = 0; at + kPiece < length; at += length / 150)
    {
        auto fresh = SoundFile::open(path);
        for (SoundFile* const file : {&*fresh, &*whole})
        {
            Samples const piece = Read(*file, static_cast<std::int64_t>(at), kPiece);
            for (std::size_t i = 0; i < piece.size(); ++i)
            {
                largest = std::max(largest, std::abs(piece[i] - straight[2 * at + i]));
            }
        }
    }
    return largest;
}

} // namespace

TEST_F(SoundFileTest, TellsRateAndLength)
{
    WriteWav(m_folder / "test.wav", StereoRamp(1234));
    auto const file = SoundFile::open(m_folder / "test.wav");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->sampleRate(), 44100);
    EXPECT_EQ(file->duration(), 1234);
}

TEST_F(SoundFileTest, LosslessFormatsAreExact)
{
    Samples const samples = StereoRamp(5000);
    for (int const format : {SF_FORMAT_WAV | SF_FORMAT_PCM_16, SF_FORMAT_AIFF | SF_FORMAT_PCM_16,
                             SF_FORMAT_FLAC | SF_FORMAT_PCM_16})
    {
        WriteSound(m_folder / "test", format, samples);
        auto file = SoundFile::open(m_folder / "test");
        ASSERT_TRUE(file) << std::hex << format;
        EXPECT_EQ(Read(*file, 0, 5000), samples) << std::hex << format;
    }
}

TEST_F(SoundFileTest, BeyondItsEndsThereIsSilence)
{
    WriteWav(m_folder / "test.wav", {1, 2, 3, 4});
    auto file = SoundFile::open(m_folder / "test.wav");
    EXPECT_THAT(Read(*file, -1, 4), ElementsAre(0, 0, 1, 2, 3, 4, 0, 0));
    EXPECT_THAT(Read(*file, -5, 2), Each(0));
    EXPECT_THAT(Read(*file, 2, 2), Each(0));
    EXPECT_THAT(Read(*file, 5, 2), Each(0));
    EXPECT_THAT(Read(*file, 1, 2), ElementsAre(3, 4, 0, 0));
}

TEST_F(SoundFileTest, OneChannelIsOnBothSidesAndOfFourTheFirstTwoAreHeard)
{
    WriteWav(m_folder / "mono.wav", {1, 2}, 1);
    WriteWav(m_folder / "four.wav", {1, 2, 3, 4, 5, 6, 7, 8}, 4);
    auto mono = SoundFile::open(m_folder / "mono.wav");
    auto four = SoundFile::open(m_folder / "four.wav");
    EXPECT_THAT(Read(*mono, 0, 2), ElementsAre(1, 1, 2, 2));
    EXPECT_THAT(Read(*four, 0, 2), ElementsAre(1, 2, 5, 6));
}

TEST_F(SoundFileTest, Mp3LosesTheEncodersDelayAndPadding)
{
    Samples const sine = StereoSine(10000, 441.0);
    WriteMp3(m_folder / "test.mp3", sine);
    auto file = SoundFile::open(m_folder / "test.mp3");
    ASSERT_EQ(file->duration(), 10000);
    Samples const decoded = Read(*file, 0, 10000);
    for (std::size_t i = 4000; i < 16000; ++i)
    {
        // The encoder turns the level down to 95 %. A sample too early or too late is up to 977 off.
        ASSERT_NEAR(decoded[i], 0.95 * sine[i], 200.0) << i;
    }
}

TEST_F(SoundFileTest, Mp3LouderThanFullScaleIsCutOff)
{
    constexpr std::size_t kHalfPeriod = 200;
    Samples square(2 * 20000);
    for (std::size_t i = 0; i < square.size(); ++i)
    {
        square[i] = i / kHalfPeriod % 2 == 0 ? 32767 : -32767;
    }
    WriteMp3(m_folder / "loud.mp3", square);
    auto file = SoundFile::open(m_folder / "loud.mp3");
    Samples const decoded = Read(*file, 0, 20000);
    EXPECT_THAT(decoded, Contains(32767));
    for (std::size_t middle = kHalfPeriod / 2; middle < square.size(); middle += kHalfPeriod)
    {
        for (std::size_t i = middle - kHalfPeriod / 4; i < middle + kHalfPeriod / 4; ++i)
        {
            ASSERT_EQ(decoded[i] > 0, square[i] > 0) << i;
        }
    }
}

TEST_F(SoundFileTest, SamplesAfterASeekAreThoseOfAStraightRead)
{
    WriteMp3(m_folder / "test.mp3", StereoSine(44100, 441.0));
    WriteNoiseMp3(m_folder / "noise.mp3");
    EXPECT_LE(LargestDifferenceAfterSeeks(m_folder / "test.mp3"), 1);
    EXPECT_LE(LargestDifferenceAfterSeeks(m_folder / "noise.mp3"), 1);
}
