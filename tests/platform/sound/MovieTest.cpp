// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Movies as they are heard through a loopback device, sample by sample, and as time tells without one.
#include "platform/sound/Movie.h"

#include "platform/base/Clock.h"
#include "platform/sound/SoundFile.h"
#include "support/CapturedLog.h"
#include "TestMedia.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace testing;
using namespace testmedia;
using platform::Movie;
using platform::MovieCallBack;

namespace
{

constexpr platform::Fixed kOne = 0x10000;

// A task without a device, and what the clock said before and after it.
struct Moment
{
    std::uint64_t before;
    int time;
    std::uint64_t after;
};

Moment Serve(Movie& movie)
{
    std::uint64_t const before = platform::UpTime();
    movie.moviesTask();
    return {before, movie.time(), platform::UpTime()};
}

// For a twentieth of a second the movie's time advances with the clock's, at that many samples a second.
void ExpectAdvance(Movie& movie, double samplesPerSecond)
{
    Moment const first = Serve(movie);
    Moment last = first;
    while (platform::SecondsBetween(first.before, last.after) < 0.05)
    {
        last = Serve(movie);
    }
    double const seconds = (last.time - first.time) / samplesPerSecond;
    constexpr double kBuffered = 0.01;
    EXPECT_GE(seconds, platform::SecondsBetween(first.after, last.before) - kBuffered);
    EXPECT_LE(seconds, platform::SecondsBetween(first.before, last.after) + kBuffered);
}

class MovieTest : public Test
{
protected:
    std::shared_ptr<Movie> open(Samples const& samples)
    {
        WriteWav(m_folder / "test.wav", samples);
        return Movie::openFile(m_folder / "test.wav");
    }

    std::shared_ptr<Movie> play(Samples const& samples)
    {
        auto movie = open(samples);
        movie->start();
        return movie;
    }

    // From its end to its beginning.
    static void playBackwards(Movie& movie)
    {
        movie.setTimeValue(movie.duration());
        movie.setRate(-kOne);
    }

    Samples hear(Movie& movie, int samples)
    {
        return m_loopback.renderFrames(samples, [&movie] { movie.moviesTask(); });
    }

    Folder m_folder;
    Loopback m_loopback;
};

int LargestDifference(Samples const& left, Samples const& right)
{
    return std::transform_reduce(
        left.begin(), left.end(), right.begin(), 0, [](int a, int b) { return std::max(a, b); },
        [](int a, int b) { return std::abs(a - b); });
}

// All of a file, read in one go.
Samples Decoded(std::filesystem::path const& path)
{
    auto file = platform::SoundFile::open(path);
    return file ? file->readAll() : Samples();
}

// Starts the movie, and sends it back to its beginning each time it comes to its end.
class Looper
{
public:
    explicit Looper(Movie& movie) : m_movie(movie), m_callBack(movie)
    {
        movie.setLoopingHint(true);
        arm();
        movie.start();
    }
    int count() const { return m_count; }

private:
    void arm()
    {
        m_callBack.callMeWhen(MovieCallBack::Trigger::TimeForward, m_movie.duration(),
                              [this]
                              {
                                  ++m_count;
                                  m_movie.setTimeValue(0);
                                  arm();
                              });
    }

    Movie& m_movie;
    MovieCallBack m_callBack;
    int m_count = 0;
};

} // namespace

TEST_F(MovieTest, PlaysEverySampleAsItIs)
{
    Samples const samples = StereoRamp(30000);
    auto const movie = play(samples);
    EXPECT_EQ(FirstDifference(hear(*movie, 30000), samples), -1);
}

TEST_F(MovieTest, StopsAtItsEndWithItsLastSamplesHeard)
{
    Samples const samples = StereoRamp(5000);
    auto const movie = play(samples);
    EXPECT_EQ(FirstDifference(hear(*movie, 5000), samples), -1);
    EXPECT_THAT(AfterFade(hear(*movie, 1000)), Each(0));
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_EQ(movie->time(), 5000);
}

TEST_F(MovieTest, TimeFollowsWhatIsHeard)
{
    auto const movie = play(StereoRamp(44100));
    hear(*movie, 10 * kFrame);
    EXPECT_EQ(movie->time(), 10 * kFrame);
}

TEST_F(MovieTest, LoopHasNoGapAndNoClick)
{
    Samples const samples = StereoSine(22050, 440.0);
    auto const movie = open(samples);
    Looper const looper(*movie);
    EXPECT_EQ(FirstDifference(hear(*movie, 3 * 22050), samples + samples + samples), -1);
    EXPECT_EQ(looper.count(), 3);
}

TEST_F(MovieTest, TimeInALoopCountsFromTheSeam)
{
    auto const movie = open(StereoRamp(10000));
    Looper const looper(*movie);
    hear(*movie, 25000);
    EXPECT_EQ(movie->time(), 5000);
}

TEST_F(MovieTest, RateChangedAfterTheSeamLosesNoTime)
{
    auto const movie = open(StereoRamp(5000));
    Looper const looper(*movie);
    hear(*movie, 4000);
    m_loopback.render(2000);
    movie->setRate(2 * kOne);
    movie->moviesTask();
    EXPECT_EQ(movie->time(), 1000);
}

TEST_F(MovieTest, LoopOfAnMp3IsExactToTheSample)
{
    WriteMp3(m_folder / "test.mp3", StereoSine(44100, 441.0));
    Samples const decoded = Decoded(m_folder / "test.mp3");
    ASSERT_EQ(decoded.size(), 2U * 44100U) << "the encoder's delay or padding is still there";
    auto const movie = Movie::openFile(m_folder / "test.mp3");
    Looper const looper(*movie);
    EXPECT_EQ(FirstDifference(hear(*movie, 100000), decoded + decoded + Part(decoded, 0, 11800)), -1);
}

TEST_F(MovieTest, MovieShorterThanAFrameLoopsWithoutAGap)
{
    Samples const samples = StereoRamp(300);
    auto const movie = open(samples);
    Looper const looper(*movie);
    Samples expected;
    while (expected.size() < 2 * 9000)
    {
        expected = expected + samples;
    }
    EXPECT_EQ(FirstDifference(hear(*movie, 9000), expected), -1);
    EXPECT_EQ(looper.count(), 30);
}

TEST_F(MovieTest, LoopThatIsNotTakenEndsTheMovie)
{
    auto const movie = open(StereoRamp(5000));
    MovieCallBack callBack(*movie);
    callBack.callMeWhen(MovieCallBack::Trigger::TimeForward, 5000, [] {});
    movie->setLoopingHint(true);
    movie->start();
    hear(*movie, 6000);
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_EQ(movie->time(), 5000);
    EXPECT_THAT(hear(*movie, 1000), Each(0));
}

TEST_F(MovieTest, NegativeRatePlaysBackwardsToTheSample)
{
    Samples const samples = StereoRamp(30000);
    auto const movie = open(samples);
    playBackwards(*movie);
    EXPECT_EQ(FirstDifference(hear(*movie, 30000), Reversed(samples)), -1);
    EXPECT_EQ(movie->time(), 0);
    EXPECT_EQ(movie->rate(), 0);
}

TEST_F(MovieTest, TurnsRoundAtEitherEndWithoutAGap)
{
    Samples const samples = StereoRamp(8000);
    auto const movie = open(samples);
    MovieCallBack atEnd(*movie);
    MovieCallBack atBeginning(*movie);
    std::function<void()> turn = [&]
    {
        movie->setRate(-movie->rate());
        atEnd.callMeWhen(MovieCallBack::Trigger::TimeForward, 8000, turn);
        atBeginning.callMeWhen(MovieCallBack::Trigger::TimeBackward, 0, turn);
    };
    atEnd.callMeWhen(MovieCallBack::Trigger::TimeForward, 8000, turn);
    atBeginning.callMeWhen(MovieCallBack::Trigger::TimeBackward, 0, turn);
    movie->start();
    EXPECT_EQ(FirstDifference(hear(*movie, 24000), samples + Reversed(samples) + samples), -1);
    EXPECT_EQ(movie->rate(), -kOne);
}

TEST_F(MovieTest, BackwardsMp3IsTheForwardOneReversed)
{
    WriteMp3(m_folder / "test.mp3", StereoSine(44100, 441.0));
    Samples const decoded = Decoded(m_folder / "test.mp3");
    auto const movie = Movie::openFile(m_folder / "test.mp3");
    playBackwards(*movie);
    EXPECT_EQ(FirstDifference(hear(*movie, 44100), Reversed(decoded)), -1);
}

// Read block by block from the end, each after a seek.
TEST_F(MovieTest, BackwardsNoiseOf32KilobitsIsTheForwardOneReversed)
{
    WriteNoiseMp3(m_folder / "noise.mp3");
    Samples const expected = Reversed(Decoded(m_folder / "noise.mp3"));
    auto const movie = Movie::openFile(m_folder / "noise.mp3");
    playBackwards(*movie);
    Samples const heard = hear(*movie, static_cast<int>(expected.size() / 2));
    EXPECT_LE(LargestDifference(heard, expected), 1) << "more than a decoder's rounding";
}

TEST_F(MovieTest, VolumeScalesWhatIsHeard)
{
    auto const movie = open(StereoSine(44100, 441.0));
    movie->setVolume(89);
    movie->start();
    Samples const heard = hear(*movie, 22050);
    int const peak = *std::max_element(heard.begin(), heard.end());
    EXPECT_NEAR(20.0 * std::log10(peak / (0.5 * 32767.0)), 20.0 * std::log10(89.0 / 256.0), 0.01);
}

TEST_F(MovieTest, NegativeVolumeIsSilentAndTimeGoesOn)
{
    auto const movie = open(StereoSine(44100, 441.0));
    movie->setVolume(-256);
    movie->start();
    EXPECT_THAT(hear(*movie, 10 * kFrame), Each(0));
    EXPECT_EQ(movie->time(), 10 * kFrame);
}

TEST_F(MovieTest, StopAndStartLoseAndRepeatNoSample)
{
    Samples const samples = StereoRamp(30000);
    auto const movie = play(samples);
    Samples heard = hear(*movie, 5000);
    m_loopback.render(0);
    movie->stop();
    EXPECT_THAT(AfterFade(hear(*movie, 3000)), Each(0));
    movie->start();
    heard = heard + hear(*movie, 5000);
    EXPECT_EQ(FirstDifference(heard, Part(samples, 0, 10000)), -1);
}

TEST_F(MovieTest, StoppedBetweenTwoTasksItKnowsWhatWasHeard)
{
    auto const movie = play(StereoRamp(30000));
    hear(*movie, 5000);
    m_loopback.render(1000);
    movie->stop();
    EXPECT_EQ(movie->time(), 6000);
}

TEST_F(MovieTest, JumpIsHeardAtOnce)
{
    Samples const samples = StereoRamp(30000);
    auto const movie = play(samples);
    hear(*movie, 5000);
    movie->setTimeValue(20000);
    EXPECT_EQ(FirstDifference(AfterFade(hear(*movie, 5000)), Part(samples, 20000 + kFade, 25000)), -1);
}

TEST_F(MovieTest, StarvedMovieGoesOnWhereItStopped)
{
    Samples const samples = StereoRamp(200000);
    auto const movie = play(samples);
    Samples const heard = m_loopback.render(100000); // no task for two seconds
    auto const starvedAt = static_cast<int>(FirstDifference(heard, Part(samples, 0, 100000)));
    ASSERT_GT(starvedAt, 0);
    // Newer versions of OpenAL hold the last sample until they mix again, which they do for 1024 at once.
    EXPECT_THAT(AfterFade(Part(heard, starvedAt + 1024, 100000)), Each(0));
    EXPECT_EQ(FirstDifference(hear(*movie, 20000), Part(samples, starvedAt, starvedAt + 20000)), -1);
    EXPECT_EQ(movie->time(), starvedAt + 20000);
}

TEST_F(MovieTest, VanishedDeviceLeavesTimeAdvancingAndAReturnedOneSounds)
{
    Samples const samples = StereoRamp(30 * 44100);
    auto const movie = play(samples);
    hear(*movie, 4410);
    m_loopback.unplug();
    ExpectAdvance(*movie, 44100.0);
    EXPECT_NE(movie->rate(), 0);

    m_loopback.plugIn();
    movie->moviesTask();
    int const at = movie->time();
    EXPECT_EQ(FirstDifference(hear(*movie, 5000), Part(samples, at, at + 5000)), -1);
}

TEST_F(MovieTest, WithoutADeviceRatesHoldAsWell)
{
    m_loopback.unplug();
    auto const movie = open(StereoRamp(441000));
    movie->setTimeValue(400000);
    movie->setRate(-2 * kOne);
    ExpectAdvance(*movie, -88200.0);
}

TEST_F(MovieTest, CallBackFiresOnceInsideATask)
{
    auto const movie = open(StereoRamp(44100));
    MovieCallBack callBack(*movie);
    int fired = 0;
    int firedAt = -1;
    callBack.callMeWhen(MovieCallBack::Trigger::TimeForward, 1000,
                        [&]
                        {
                            ++fired;
                            firedAt = movie->time();
                        });
    movie->start();
    movie->moviesTask();
    m_loopback.render(2000);
    EXPECT_EQ(fired, 0) << "served outside of a task";
    movie->moviesTask();
    EXPECT_EQ(firedAt, 1000);
    movie->setTimeValue(0);
    hear(*movie, 2000);
    EXPECT_EQ(fired, 1);
}

TEST_F(MovieTest, CallBackArmedByAnotherInItsPlaceWaitsForTheNextTime)
{
    auto const movie = open(StereoRamp(44100));
    MovieCallBack first(*movie);
    auto second = std::make_unique<MovieCallBack>(*movie);
    int fired = 0;
    auto const replace = [&]
    {
        second.reset(); // so that the new one most likely has its address
        second = std::make_unique<MovieCallBack>(*movie);
        second->callMeWhen(MovieCallBack::Trigger::TimeForward, 1000, [&] { ++fired; });
    };
    first.callMeWhen(MovieCallBack::Trigger::TimeForward, 1000, replace);
    second->callMeWhen(MovieCallBack::Trigger::TimeForward, 1000, [] {});
    movie->start();
    hear(*movie, 2000);
    EXPECT_EQ(fired, 0);
    movie->setTimeValue(0);
    hear(*movie, 2000);
    EXPECT_EQ(fired, 1);
}

TEST_F(MovieTest, CallBackMayLetGoOfItsMovie)
{
    auto movie = play(StereoRamp(44100));
    std::weak_ptr<Movie> const watched = movie;
    auto callBack = std::make_unique<MovieCallBack>(*movie);
    bool livedOn = false;
    auto const letGo = [&]
    {
        callBack.reset();
        movie.reset();
        livedOn = !watched.expired();
    };
    callBack->callMeWhen(MovieCallBack::Trigger::TimeForward, 1000, letGo);
    auto const serve = [&]
    {
        if (movie)
        {
            movie->moviesTask();
        }
    };
    m_loopback.renderFrames(2000, serve);
    EXPECT_TRUE(livedOn) << "until the end of the task";
    EXPECT_TRUE(watched.expired());
}

TEST_F(MovieTest, CallBackWaitsForItsDirectionOnly)
{
    auto const movie = open(StereoRamp(44100));
    MovieCallBack callBack(*movie);
    int fired = 0;
    callBack.callMeWhen(MovieCallBack::Trigger::TimeBackward, 1000, [&] { ++fired; });
    movie->start();
    hear(*movie, 2000);
    EXPECT_EQ(fired, 0);
    movie->setRate(-kOne);
    hear(*movie, 1500);
    EXPECT_EQ(fired, 1);
}

TEST_F(MovieTest, CallBackInTheMiddleMayJump)
{
    Samples const samples = StereoRamp(44100);
    auto const movie = open(samples);
    MovieCallBack callBack(*movie);
    callBack.callMeWhen(MovieCallBack::Trigger::TimeForward, 5 * kFrame, [&] { movie->setTimeValue(30000); });
    movie->start();
    hear(*movie, 5 * kFrame);
    EXPECT_EQ(movie->time(), 30000);
    EXPECT_EQ(FirstDifference(AfterFade(hear(*movie, 1000)), Part(samples, 30000 + kFade, 31000)), -1);
}

TEST_F(MovieTest, InactiveMovieStandsStill)
{
    auto const movie = play(StereoRamp(44100));
    hear(*movie, 2000);
    movie->setActive(false);
    EXPECT_THAT(AfterFade(hear(*movie, 2000)), Each(0));
    EXPECT_EQ(movie->time(), 2000);
    movie->setActive(true);
    hear(*movie, 1000);
    EXPECT_EQ(movie->time(), 3000);
}

TEST_F(MovieTest, MonoIsHeardOnBothSidesAtItsOwnLevel)
{
    WriteWav(m_folder / "mono.wav", {1000, 2000, -3000, 4000}, 1);
    auto const movie = Movie::openFile(m_folder / "mono.wav");
    movie->start();
    EXPECT_THAT(hear(*movie, 4), ElementsAre(1000, 1000, 2000, 2000, -3000, -3000, 4000, 4000));
}

TEST_F(MovieTest, FilesThatCannotBeDecodedAreNoMovies)
{
    WriteBytes(m_folder / "empty.mp3", "");
    WriteBytes(m_folder / "text.mp3", std::string(5000, 'a') + "\n");
    WriteWav(m_folder / "nothing.wav", {});
    for (char const* const name : {"missing.mp3", "empty.mp3", "text.mp3", "nothing.wav", "."})
    {
        CapturedLog log;
        EXPECT_FALSE(Movie::openFile(m_folder / name)) << name;
        EXPECT_THAT(log.lines(), ElementsAre(HasSubstr((m_folder / name).string())));
    }
}
