// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The four tracks as players get them: format, length, loudness after the playlist's factors, peaks, and a
// loop without an audible seam. libsndfile decodes them, as in the game, and trims what the encoder added;
// ffmpeg measures loudness and peaks.
#include "common/Fourier.h"
#include "synth/SoundFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace
{

using namespace maker;

struct Track
{
    char const* name;
    double factor;      // of the playlist
    std::size_t frames; // beats times 60 / tempo times 44100
    std::size_t beats;  // bars times beats in a bar
};

void PrintTo(Track const& track, std::ostream* out)
{
    *out << track.name;
}

constexpr std::array<Track, 4> kTracks = {{{"Sable", 1.0, 5443200, 288},
                                           {"Electro0032", 0.5, 5292000, 256},
                                           {"SerialK", 0.7, 5292000, 252},
                                           {"Aai_Tookai", 0.7, 5093550, 616}}};

std::string PathOf(Track const& track)
{
    return std::string(QUARROW_MUSIC_DIR "/") + track.name + ".mp3";
}

std::string OutputOf(std::string const& command)
{
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    std::array<char, 65536> buffer = {};
    for (std::size_t count = 1; pipe && count > 0; output.append(buffer.data(), count))
        count = std::fread(buffer.data(), 1, buffer.size(), pipe.get());
    return output;
}

// Every track is decoded once for all tests.
SoundFile const& Decoded(Track const& track)
{
    static std::map<std::string, SoundFile> decoded;
    auto const [entry, isNew] = decoded.try_emplace(track.name);
    if (isNew)
        entry->second = ReadSound(PathOf(track));
    return entry->second;
}

// Around the loop: the frame after the last is the first.
double Around(SoundFile const& track, std::size_t frame, std::size_t channel)
{
    return track.At(frame % track.Length(), channel);
}

// The last value after that label in the summary of ffmpeg's loudness meter.
double Measured(Track const& track, std::string const& label)
{
    std::string const report = OutputOf("ffmpeg -nostats -nostdin -hide_banner -i '" + PathOf(track) +
                                        "' -af ebur128=peak=true -f null - 2>&1 | tail -n 20");
    std::size_t const place = report.rfind(label);
    return place == std::string::npos ? 1000.0 : std::atof(report.c_str() + place + label.size());
}

double LoudnessInTheGame(Track const& track)
{
    return Measured(track, " I:") + 20.0 * std::log10(track.factor);
}

double Quantile(std::vector<double> values, double share)
{
    auto const place =
        values.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

constexpr std::size_t kWindow = 256;
constexpr std::size_t kOctaves = 7;

// Energy in the octaves below half the sample rate, of the frames around one.
std::array<double, kOctaves> Spectrum(SoundFile const& track, std::size_t middle)
{
    std::size_t const begin = middle + track.Length() - kWindow / 2;
    std::array<double, kOctaves> octaves = {};
    Waves waves;
    for (std::size_t i = 0; i < kWindow; ++i)
    {
        double const hann = 0.5 - 0.5 * Cosine(static_cast<double>(i) / kWindow);
        waves.emplace_back(hann * (Around(track, begin + i, 0) + Around(track, begin + i, 1)));
    }
    Transform(waves);
    for (std::size_t bin = 1, octave = 0; bin < kWindow / 2; ++bin)
    {
        if (bin == std::size_t{2} << octave)
            ++octave;
        octaves[octave] += std::norm(waves[bin]);
    }
    return octaves;
}

class Music : public testing::TestWithParam<Track>
{
};

TEST_P(Music, IsStereoAt44100HzAnd192KilobitsASecond)
{
    std::string const format =
        OutputOf("ffprobe -v error -show_entries stream=codec_name,sample_rate,channels,bit_rate -of "
                 "default=noprint_wrappers=1:nokey=1 '" +
                 PathOf(GetParam()) + "'");
    EXPECT_EQ(format, "mp3\n44100\n2\n192000\n");
}

TEST_P(Music, DecodesToExactlyItsBars)
{
    EXPECT_EQ(Decoded(GetParam()).Length(), GetParam().frames);
    EXPECT_GE(GetParam().frames, 90U * 44100U);
    EXPECT_LE(GetParam().frames, 180U * 44100U);
}

TEST_P(Music, PeaksStayADecibelBelowFullScale)
{
    EXPECT_LE(Measured(GetParam(), "Peak:"), -1.0);
}

TEST_P(Music, HasNoSteadyOffset)
{
    SoundFile const& track = Decoded(GetParam());
    double sum = 0.0;
    for (double const value : track.samples)
        sum += value;
    // -60 dB: far below anything that could click at start and stop
    EXPECT_LT(std::fabs(sum / static_cast<double>(track.samples.size())), 0.001);
}

TEST_P(Music, StepFromLastToFirstSampleIsNoLargerThanWithin)
{
    SoundFile const& track = Decoded(GetParam());
    ASSERT_GT(track.Length(), 0U);
    for (std::size_t channel = 0; channel < 2; ++channel)
    {
        std::vector<double> steps(track.Length());
        for (std::size_t i = 0; i < steps.size(); ++i)
            steps[i] = std::fabs(Around(track, i + 1, channel) - Around(track, i, channel));
        double const seam = steps.back();
        // a drum opens two of the pieces, so the seam may be as steep as their drums are
        EXPECT_LE(seam, Quantile(std::move(steps), 0.9999));
    }
}

TEST_P(Music, SpectrumAroundTheSeamIsNoBrighterThanWithin)
{
    SoundFile const& track = Decoded(GetParam());
    ASSERT_GT(track.Length(), 0U);
    std::array<std::vector<double>, kOctaves> within;
    // the seam is a beat like any other, and is measured against them
    for (std::size_t beat = 1; beat < GetParam().beats; ++beat)
    {
        std::array<double, kOctaves> const spectrum =
            Spectrum(track, beat * track.Length() / GetParam().beats);
        for (std::size_t octave = 0; octave < kOctaves; ++octave)
            within[octave].push_back(spectrum[octave]);
    }
    std::array<double, kOctaves> const seam = Spectrum(track, 0);
    for (std::size_t octave = 0; octave < kOctaves; ++octave)
        EXPECT_LE(seam[octave], Quantile(within[octave], 0.99)) << "octave " << octave;
}

TEST_P(Music, DoesNotFallSilentAtTheSeam)
{
    SoundFile const& track = Decoded(GetParam());
    ASSERT_GT(track.Length(), 0U);
    // 20 ms on both sides; a gap of the encoder's making would be 25 to 50 ms of zeros
    auto const energy = [&](std::size_t begin)
    {
        double sum = 0.0;
        for (std::size_t i = begin; i < begin + 882; ++i)
            sum += Around(track, i, 0) * Around(track, i, 0) + Around(track, i, 1) * Around(track, i, 1);
        return sum;
    };
    std::vector<double> within;
    for (std::size_t begin = 0; begin < track.Length(); begin += 882)
        within.push_back(energy(begin));
    // notes may die away before a beat, but 30 dB under the usual level is no music
    double const floor = 0.001 * Quantile(std::move(within), 0.5);
    EXPECT_GE(energy(0), floor);
    EXPECT_GE(energy(track.Length() - 882), floor);
}

INSTANTIATE_TEST_SUITE_P(Tracks, Music, testing::ValuesIn(kTracks),
                         [](auto const& track) { return std::string(track.param.name); });

TEST(Playlist, AllTracksAreHeardWithinOneLoudnessUnit)
{
    std::vector<double> levels;
    for (Track const& track : kTracks)
        levels.push_back(LoudnessInTheGame(track));
    auto const [quietest, loudest] = std::minmax_element(levels.begin(), levels.end());
    EXPECT_LE(*loudest - *quietest, 1.0);
    EXPECT_GT(*quietest, -30.0);
}

std::string BytesOf(std::filesystem::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(MakeMusic, WritesTheShippedBytesAgain)
{
    Track const& track = kTracks.back(); // the shortest
    std::filesystem::path const made =
        std::filesystem::path(testing::TempDir()) / (std::string("again-") + track.name + ".mp3");
    std::string const command = std::string("'" QUARROW_MUSIC_ENCODER "' '" QUARROW_MUSIC_PROGRAM "' ") +
                                track.name + " '" + made.string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_TRUE(BytesOf(made) == BytesOf(PathOf(track)));
    std::filesystem::remove(made);
}

} // namespace
