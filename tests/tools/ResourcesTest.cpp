// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What a player sees and hears, measured in the files that ship; and that the tools make the same files
// again.
#include "images/Picture.h"
#include "Spectrum.h"
#include "synth/SoundFile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <numbers>

namespace
{

using namespace maker;

std::string const kResources = QUARROW_RESOURCE_DIR;
std::string const kTools = QUARROW_TOOLS_DIR;

double Grey(Vector const& colour)
{
    return (colour.x + colour.y + colour.z) / 3.0;
}

double Difference(Vector const& a, Vector const& b)
{
    return (std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.z - b.z)) / 3.0;
}

double ColumnDifference(Picture const& picture, int first, int second)
{
    double sum = 0.0;
    for (int y = 0; y < picture.Height(); ++y)
    {
        sum += Difference(picture.At(first, y), picture.At(second, y));
    }
    return sum / picture.Height();
}

double RowDifference(Picture const& picture, int first, int second)
{
    double sum = 0.0;
    for (int x = 0; x < picture.Width(); ++x)
    {
        sum += Difference(picture.At(x, first), picture.At(x, second));
    }
    return sum / picture.Width();
}

// The mean over all pairs of neighbours inside a picture.
double MeanInside(int count, std::function<double(int)> const& differenceFrom)
{
    double sum = 0.0;
    for (int i = 0; i + 1 < count; ++i)
    {
        sum += differenceFrom(i);
    }
    return sum / (count - 1);
}

double MeanColumnDifference(Picture const& picture)
{
    return MeanInside(picture.Width(), [&](int x) { return ColumnDifference(picture, x, x + 1); });
}

double MeanRowDifference(Picture const& picture)
{
    return MeanInside(picture.Height(), [&](int y) { return RowDifference(picture, y, y + 1); });
}

double RowMean(Picture const& picture, int y)
{
    double sum = 0.0;
    for (int x = 0; x < picture.Width(); ++x)
    {
        sum += Grey(picture.At(x, y));
    }
    return sum / picture.Width();
}

double RowSpread(Picture const& picture, int y)
{
    double const mean = RowMean(picture, y);
    double widest = 0.0;
    for (int x = 0; x < picture.Width(); ++x)
    {
        widest = std::max(widest, std::abs(Grey(picture.At(x, y)) - mean));
    }
    return widest;
}

class RockTexture : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(ReadJpeg(kResources + "/Images/roid-128.jpg", m_picture)); }

    Picture m_picture{1, 1};
};

TEST_F(RockTexture, MeasuresAHundredAndTwentyEightPixels)
{
    EXPECT_EQ(m_picture.Width(), 128);
    EXPECT_EQ(m_picture.Height(), 128);
}

TEST_F(RockTexture, HasNoSeamAtTheMeridian)
{
    EXPECT_LE(ColumnDifference(m_picture, 127, 0), 1.15 * MeanColumnDifference(m_picture));
}

// The mean of some rows. Of each, pixels are compared that lie as far apart on the sphere as neighbours do at
// its equator.
double GroundDifference(Picture const& picture, int firstRow, int rowCount)
{
    double sum = 0.0;
    for (int y = firstRow; y < firstRow + rowCount; ++y)
    {
        double const ring = std::sin(std::numbers::pi * (y + 0.5) / picture.Height());
        auto const apart = static_cast<int>(std::lround(1.0 / ring));
        for (int x = 0; x < picture.Width(); ++x)
        {
            sum += Difference(picture.At(x, y), picture.At((x + apart) % picture.Width(), y));
        }
    }
    return sum / (picture.Width() * rowCount);
}

TEST_F(RockTexture, IsNotPinchedAtThePoles)
{
    double const atTheEquator = GroundDifference(m_picture, 58, 12);
    EXPECT_LE(GroundDifference(m_picture, 0, 12), atTheEquator);
    EXPECT_LE(GroundDifference(m_picture, 116, 12), atTheEquator);
}

// Each pole is one point of the sphere: along its whole row the colour can hardly change.
TEST_F(RockTexture, HasOneToneAtEachPole)
{
    EXPECT_LT(RowSpread(m_picture, 0), 0.04);
    EXPECT_LT(RowSpread(m_picture, 127), 0.04);
}

// At the very pole the repeating texture is half of the other pole's row.
TEST_F(RockTexture, HasLikePoles)
{
    EXPECT_NEAR(RowMean(m_picture, 0), RowMean(m_picture, 127), 0.06);
}

TEST_F(RockTexture, LeavesRoomForTheLightOfTheScene)
{
    double sum = 0.0;
    int glaring = 0;
    for (int y = 0; y < 128; ++y)
    {
        for (int x = 0; x < 128; ++x)
        {
            double const grey = Grey(m_picture.At(x, y));
            sum += grey;
            glaring += grey > 0.97 ? 1 : 0;
        }
    }
    EXPECT_GE(sum / (128 * 128), 0.5);
    EXPECT_LE(sum / (128 * 128), 0.6);
    EXPECT_LT(glaring, 128 * 128 / 200);
}

class SkyTexture : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(ReadJpeg(kResources + "/Images/starfield-1024.jpg", m_picture)); }

    Picture m_picture{1, 1};
};

TEST_F(SkyTexture, MeasuresAThousandAndTwentyFourPixels)
{
    EXPECT_EQ(m_picture.Width(), 1024);
    EXPECT_EQ(m_picture.Height(), 1024);
}

TEST_F(SkyTexture, RepeatsWithoutASeamAcross)
{
    EXPECT_LE(ColumnDifference(m_picture, 1023, 0), 1.5 * MeanColumnDifference(m_picture));
}

TEST_F(SkyTexture, RepeatsWithoutASeamDownwards)
{
    EXPECT_LE(RowDifference(m_picture, 1023, 0), 1.5 * MeanRowDifference(m_picture));
}

// The faces of the sky box join the left edge to the upper edge, and each to its own mirror image. Two steps
// of 255 are the grain that keeps dark slopes from banding.
TEST_F(SkyTexture, MeetsItselfAtEveryFoldOfTheSkyBox)
{
    double mirrored = 0.0;
    double turned = 0.0;
    for (int i = 0; i < 1024; ++i)
    {
        mirrored += Difference(m_picture.At(0, i), m_picture.At(0, 1023 - i));
        turned += Difference(m_picture.At(0, i), m_picture.At(i, 0));
    }
    EXPECT_LT(mirrored / 1024, 2.0 / 255.0);
    EXPECT_LT(turned / 1024, 2.0 / 255.0);
}

TEST_F(SkyTexture, StaysDarkEnoughToReadTextOver)
{
    constexpr int kPatch = 16;
    double brightest = 0.0;
    for (int top = 0; top < 1024; top += kPatch)
    {
        for (int left = 0; left < 1024; left += kPatch)
        {
            double sum = 0.0;
            for (int i = 0; i < kPatch * kPatch; ++i)
            {
                sum += Grey(m_picture.At(left + i % kPatch, top + i / kPatch));
            }
            brightest = std::max(brightest, sum / (kPatch * kPatch));
        }
    }
    EXPECT_LT(brightest, 0.33);
}

TEST_F(SkyTexture, HasNoPatternThatRepeatsInsideTheTile)
{
    EXPECT_LT(StrongestWaveOverMean(m_picture, 8), 25.0);
}

TEST_F(SkyTexture, ShowsNoBlocksOfTheCompression)
{
    double within = 0.0;
    double across = 0.0;
    for (int x = 0; x + 1 < 1024; ++x)
    {
        (x % 8 == 7 ? across : within) += ColumnDifference(m_picture, x, x + 1);
    }
    EXPECT_LT(across / 127, 1.08 * within / 896);
}

struct Effect
{
    char const* file;
    double longest; // seconds
};

void PrintTo(Effect const& effect, std::ostream* out)
{
    *out << effect.file;
}

class SoundEffect : public testing::TestWithParam<Effect>
{
protected:
    void SetUp() override { ASSERT_FALSE(m_sound.samples.empty()); }

    std::string const m_path = kResources + "/Sounds/" + GetParam().file;
    SoundFile const m_sound = ReadSound(m_path);
};

TEST_P(SoundEffect, HasTheQualityOfADisc)
{
    EXPECT_EQ(m_sound.rate, 44100.0);
    EXPECT_LE(m_sound.channels, 2U);
    // 16 bits a sample behind the chunks' heads.
    EXPECT_EQ(std::filesystem::file_size(m_path), 54 + 2 * m_sound.samples.size());
}

TEST_P(SoundEffect, IsShort)
{
    double const seconds = static_cast<double>(m_sound.Length()) / m_sound.rate;
    EXPECT_LT(seconds, GetParam().longest);
    EXPECT_GT(seconds, 0.03);
}

TEST_P(SoundEffect, PeaksAtOneDecibelBelowFullScale)
{
    double peak = 0.0;
    for (double const sample : m_sound.samples)
    {
        peak = std::max(peak, std::abs(sample));
    }
    EXPECT_NEAR(20.0 * std::log10(peak), -1.0, 0.05);
}

TEST_P(SoundEffect, StartsAndEndsInSilence)
{
    std::size_t const length = m_sound.Length();
    for (std::size_t channel = 0; channel < m_sound.channels; ++channel)
    {
        EXPECT_EQ(m_sound.At(0, channel), 0.0);
        EXPECT_EQ(m_sound.At(length - 1, channel), 0.0);
        // A step in the last millisecond would be heard as a click.
        double loudest = 0.0;
        for (std::size_t i = length - 44; i < length; ++i)
        {
            loudest = std::max(loudest, std::abs(m_sound.At(i, channel)));
        }
        EXPECT_LT(loudest, 0.001);
    }
}

TEST_P(SoundEffect, HasNoConstantPart)
{
    for (std::size_t channel = 0; channel < m_sound.channels; ++channel)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < m_sound.Length(); ++i)
        {
            sum += m_sound.At(i, channel);
        }
        // Half a step of the 16-bit scale.
        EXPECT_LT(std::abs(sum / static_cast<double>(m_sound.Length())), 0.5 / 32768.0);
    }
}

INSTANTIATE_TEST_SUITE_P(All, SoundEffect,
                         testing::Values(Effect{"Fanfare.AIFF", 3.0}, Effect{"Starter.AIFF", 3.0},
                                         Effect{"Controls.AIFF", 0.12}, Effect{"HiScore.AIFF", 3.0},
                                         Effect{"Wham.AIFF", 3.0}, Effect{"Graze.AIFF", 3.0},
                                         Effect{"Attention.AIFF", 3.0}, Effect{"Rollover.AIFF", 0.25},
                                         Effect{"Click.AIFF", 0.25}),
                         [](testing::TestParamInfo<Effect> const& effect)
                         {
                             std::string const file = effect.param.file;
                             return file.substr(0, file.find('.'));
                         });

std::string Bytes(std::string const& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class MadeAgain : public testing::Test
{
protected:
    void SetUp() override
    {
        m_folder = testing::TempDir() + "quarrow-resources-" + std::to_string(getpid());
        std::filesystem::create_directories(m_folder);
    }

    void TearDown() override { std::filesystem::remove_all(m_folder); }

    void Run(std::string const& tool, std::string const& target) const
    {
        std::string const command = "'" + kTools + "/" + tool + "' '" + target + "'";
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    // Every file of the shipped folder must have been made, with the same bytes, and no others.
    void ExpectSameFiles(std::string const& shipped) const
    {
        std::size_t count = 0;
        for (auto const& entry : std::filesystem::directory_iterator(shipped))
        {
            std::string const name = entry.path().filename();
            std::string const made = Bytes(m_folder + "/" + name);
            EXPECT_FALSE(made.empty()) << name;
            EXPECT_TRUE(made == Bytes(entry.path())) << name;
            ++count;
        }
        std::filesystem::directory_iterator const made(m_folder);
        EXPECT_EQ(static_cast<std::size_t>(std::distance(begin(made), end(made))), count);
    }

    std::string m_folder;
};

TEST_F(MadeAgain, PicturesHaveTheSameBytes)
{
    Run("make-rock", m_folder + "/roid-128.jpg");
    Run("make-stars", m_folder + "/starfield-1024.jpg");
    ExpectSameFiles(kResources + "/Images");
}

TEST_F(MadeAgain, EffectsHaveTheSameBytes)
{
    Run("make-sounds", m_folder);
    ExpectSameFiles(kResources + "/Sounds");
}

TEST_F(MadeAgain, IconsHaveTheSameBytes)
{
    Run("make-icons", m_folder);
    ExpectSameFiles(kResources + "/Icons");
}

TEST(Tools, SayWhatIsWrongWhenTheyCannotWrite)
{
    for (char const* const tool : {"make-stars", "make-sounds", "make-icons"})
    {
        std::string const command = "'" + kTools + "/" + tool + "' /nowhere/at/all 2>/dev/null";
        EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1) << tool;
    }
}

class Icon : public testing::TestWithParam<int>
{
};

// Width and height stand at bytes 16 and 20 of a PNG file, big-endian.
TEST_P(Icon, HasItsSize)
{
    std::string const bytes = Bytes(kResources + "/Icons/quarrow-" + std::to_string(GetParam()) + ".png");
    ASSERT_GT(bytes.size(), 24U);
    auto const number = [&](std::size_t place) {
        return static_cast<unsigned char>(bytes[place + 2]) * 256 +
               static_cast<unsigned char>(bytes[place + 3]);
    };
    EXPECT_EQ(number(16), GetParam());
    EXPECT_EQ(number(20), GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, Icon, testing::Values(16, 22, 24, 32, 48, 64, 128, 256, 512));

} // namespace
