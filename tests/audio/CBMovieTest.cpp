// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/CBMovie.h"

#include "platform/base/Encoding.h"
#include "platform/base/RunLoop.h"
#include "platform/sound/Pasteboard.h"
#include "platform/sound/TestMedia.h"
#include "support/CapturedLog.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

using namespace testing;
using namespace testmedia;

namespace
{

void PassRunLoop()
{
    platform::RunLoop::runTimersOnce();
}

class CBMovieTest : public Test
{
protected:
    // A playing movie lives on without its users.
    ~CBMovieTest() override
    {
        if (auto const movie = m_movie.lock())
        {
            movie->stop();
        }
    }

    std::shared_ptr<CBMovie> open(Samples const& samples)
    {
        WriteWav(m_folder / "test.wav", samples);
        auto movie = CBMovie::initWithFile(m_folder / "test.wav", false);
        m_movie = movie;
        return movie;
    }

    std::shared_ptr<CBMovie> play(Samples const& samples, LoopMode loopMode)
    {
        auto movie = open(samples);
        movie->setLoopMode(loopMode);
        movie->start();
        return movie;
    }

    // One pass of the run loop before each frame's sound.
    Samples hear(int samples) { return m_loopback.renderFrames(samples, PassRunLoop); }

    Folder m_folder;
    std::weak_ptr<CBMovie> m_movie;
    Loopback m_loopback;
};

} // namespace

TEST_F(CBMovieTest, InitialisersGiveNullForWhatCannotBeOpened)
{
    CapturedLog const log;
    EXPECT_FALSE(CBMovie::initWithURL("http://host.example/a.mp3", false));
    EXPECT_FALSE(CBMovie::initWithURL("file:///no/such/file.mp3", true));
    EXPECT_FALSE(CBMovie::initWithFile("", false));
    EXPECT_FALSE(CBMovie::initWithMovie(nullptr));
    EXPECT_FALSE(CBMovie::initWithPasteboard({"some words"}));
}

TEST_F(CBMovieTest, OpensFilesUrlsAndThePasteboard)
{
    WriteWav(m_folder / "a b.wav", StereoRamp(1000));
    std::string const url = platform::FileURLWithPath(m_folder / "a b.wav").value();
    EXPECT_TRUE(CBMovie::initWithFile(m_folder / "a b.wav", true));
    EXPECT_TRUE(CBMovie::initWithURL(url, false));
    EXPECT_TRUE(CBMovie::initWithPasteboard({url + "\r\n"}));
    EXPECT_TRUE(CBMovie::initWithMovie(platform::Movie::openFile(m_folder / "a b.wav")));
}

TEST_F(CBMovieTest, StartsStoppedAndWithoutLoop)
{
    auto const movie = open(StereoRamp(1000));
    EXPECT_FALSE(movie->isPlaying());
    EXPECT_EQ(movie->loopMode(), kLoopNone);
    EXPECT_FALSE(movie->playsSelectionOnly());
    EXPECT_EQ(movie->time(), 0);
    EXPECT_EQ(movie->duration(), 1000);
    EXPECT_EQ(movie->volume(), 1.0F);
    EXPECT_FALSE(movie->name());
}

TEST_F(CBMovieTest, WithoutAMovieEverythingIsHarmless)
{
    auto const movie = CBMovie::init();
    movie->setLoopMode(kLoopNormal);
    EXPECT_EQ(movie->loopMode(), kLoopNone);
    movie->start();
    movie->setRate(1.0F);
    movie->setVolume(0.5F);
    movie->setMuted(true);
    movie->gotoBeginning();
    movie->gotoEnd();
    movie->gotoPosterFrame();
    movie->gotoPercentFinished(50.0F);
    movie->stepForward();
    movie->stepBack();
    movie->setMovieActive(true);
    movie->moviesTask();
    EXPECT_FALSE(movie->isPlaying());
    EXPECT_EQ(movie->percentFinished(), 0.0F);
    EXPECT_EQ(movie->movieRect().size.width, 0.0F);
    movie->stop();
}

TEST_F(CBMovieTest, LoopModeNoneStopsAtTheEnd)
{
    auto const movie = play(StereoRamp(2000), kLoopNone);
    EXPECT_TRUE(movie->isPlaying());
    EXPECT_EQ(hear(2000), StereoRamp(2000));
    EXPECT_THAT(AfterFade(hear(1000)), Each(0));
    EXPECT_FALSE(movie->isPlaying());
    EXPECT_EQ(movie->time(), 2000);
}

TEST_F(CBMovieTest, LoopModeNormalGoesOnFromTheBeginning)
{
    auto const movie = play(StereoRamp(5000), kLoopNormal);
    EXPECT_EQ(hear(15000), StereoRamp(5000) + StereoRamp(5000) + StereoRamp(5000));
    EXPECT_TRUE(movie->isPlaying());
}

TEST_F(CBMovieTest, LoopModePalindromeTurnsAtEitherEnd)
{
    auto const movie = play(StereoRamp(5000), kLoopPalindrome);
    EXPECT_EQ(hear(20000),
              StereoRamp(5000) + Reversed(StereoRamp(5000)) + StereoRamp(5000) + Reversed(StereoRamp(5000)));
}

// Sound is fed ahead over an end where a callback waits at either. Without a task nobody else notices the
// end.
TEST_F(CBMovieTest, LeavingAPalindromeDisposesOfBothItsCallBacks)
{
    auto const movie = play(StereoRamp(5000), kLoopPalindrome);
    hear(8000);
    movie->setLoopMode(kLoopNone);
    EXPECT_EQ(AfterFade(m_loopback.render(2000)), Part(Reversed(StereoRamp(5000)), 3000 + kFade, 5000));
    EXPECT_THAT(AfterFade(m_loopback.render(1000)), Each(0));
    hear(0);
    EXPECT_FALSE(movie->isPlaying());
    EXPECT_EQ(movie->time(), 0);
}

TEST_F(CBMovieTest, PlainLoopMayBecomeAPalindromeWhileItPlays)
{
    Samples const samples = StereoRamp(5000);
    auto const movie = play(samples, kLoopNormal);
    hear(2000);
    movie->setLoopMode(kLoopPalindrome);
    EXPECT_EQ(AfterFade(hear(10000)),
              Part(samples, 2000 + kFade, 5000) + Reversed(samples) + Part(samples, 0, 2000));
    EXPECT_EQ(movie->rate(), 1.0F);
}

// More than a pass of the run loop lies between the change and the end, but less than was fed ahead.
TEST_F(CBMovieTest, LoopModeChangedInPlayIsHeardAtTheNextEnd)
{
    Samples const samples = StereoRamp(5000);
    auto const movie = play(samples, kLoopNormal);
    hear(4500);
    movie->setLoopMode(kLoopPalindrome);
    EXPECT_EQ(AfterFade(m_loopback.render(1000)),
              Part(samples, 4500 + kFade, 5000) + Part(Reversed(samples), 0, 500));
    movie->setLoopMode(kLoopNone);
    EXPECT_EQ(AfterFade(m_loopback.render(4500)), Part(Reversed(samples), 500 + kFade, 5000));
    EXPECT_THAT(AfterFade(m_loopback.render(1000)), Each(0));
}

TEST_F(CBMovieTest, StoppedJustAfterASeamItGoesOnFromThere)
{
    Samples const samples = StereoRamp(5000);
    auto const movie = play(samples, kLoopNormal);
    hear(4000);
    m_loopback.render(2000);
    movie->stop();
    EXPECT_EQ(movie->time(), 1000);
    movie->start();
    EXPECT_EQ(AfterFade(hear(2000)), Part(samples, 1000 + kFade, 3000));
}

TEST_F(CBMovieTest, VolumeSetOnAStarvedMovieRepeatsNothing)
{
    Samples const samples = StereoRamp(100000);
    auto const movie = play(samples, kLoopNone);
    Samples const heard = m_loopback.render(90000); // no task for two seconds
    auto const starvedAt = FirstDifference(heard, Part(samples, 0, 90000));
    ASSERT_GT(starvedAt, 0);
    movie->setVolume(1.0F);
    EXPECT_EQ(hear(5000), Part(samples, starvedAt, starvedAt + 5000));
}

TEST_F(CBMovieTest, PlainLoopDoesNotHoldAtTheBeginningGoingBackwards)
{
    auto const movie = open(StereoRamp(5000));
    movie->setLoopMode(kLoopNormal);
    movie->gotoTime(2000);
    movie->setRate(-1.0F);
    hear(3000);
    EXPECT_FALSE(movie->isPlaying());
    EXPECT_EQ(movie->time(), 0);
}

TEST_F(CBMovieTest, LoopingMovieSentToItsEndGoesOn)
{
    auto const movie = play(StereoRamp(5000), kLoopNormal);
    movie->gotoEnd();
    EXPECT_EQ(movie->time(), 5000);
    EXPECT_EQ(hear(3000), StereoRamp(3000));
    EXPECT_TRUE(movie->isPlaying());
}

TEST_F(CBMovieTest, TimerLivesFromStartToStop)
{
    auto const movie = open(StereoRamp(44100));
    auto const users = movie.use_count();
    movie->start();
    movie->start();
    EXPECT_EQ(movie.use_count(), users + 1) << "the timer holds what it serves, once";
    movie->stop();
    PassRunLoop();
    EXPECT_EQ(movie.use_count(), users);
}

TEST_F(CBMovieTest, ZeroRateDropsTheTimerAndAnotherSchedulesIt)
{
    auto const movie = open(StereoRamp(44100));
    auto const users = movie.use_count();
    movie->setRate(2.0F);
    EXPECT_EQ(movie->rate(), 2.0F);
    EXPECT_EQ(movie.use_count(), users + 1);
    movie->setRate(0.0F);
    PassRunLoop();
    EXPECT_EQ(movie.use_count(), users);
    EXPECT_FALSE(movie->isPlaying());
}

// A rate is kept in 65,536ths.
TEST_F(CBMovieTest, OnlyARateOfZeroDropsTheTimerHoweverSlowTheMovie)
{
    auto const movie = open(StereoRamp(44100));
    auto const users = movie.use_count();
    movie->setRate(1e-6F);
    EXPECT_EQ(movie->rate(), 0.0F);
    EXPECT_EQ(movie.use_count(), users + 1);
    movie->setRate(0.0F);
    PassRunLoop();
    EXPECT_EQ(movie.use_count(), users);
}

// The movie has stopped by itself; its timer goes on until somebody stops it.
TEST_F(CBMovieTest, TimerLivesOnAtTheEndOfAPlayWithoutLoop)
{
    auto const movie = open(StereoRamp(2000));
    auto const users = movie.use_count();
    movie->start();
    hear(3000);
    ASSERT_FALSE(movie->isPlaying());
    EXPECT_EQ(movie.use_count(), users + 1);
    movie->stop();
    PassRunLoop();
    EXPECT_EQ(movie.use_count(), users);
}

TEST_F(CBMovieTest, RateTwoAndMinusOneAdvanceTimeAsTheyShould)
{
    auto const movie = open(StereoRamp(44100));
    movie->setRate(2.0F);
    hear(10 * kFrame);
    EXPECT_NEAR(movie->time(), 20 * kFrame, 2);
    movie->setRate(-1.0F);
    int const turned = movie->time();
    hear(10 * kFrame);
    EXPECT_NEAR(movie->time(), turned - 10 * kFrame, 2);
}

TEST_F(CBMovieTest, VolumeIsHeldInTwoHundredAndFiftySixths)
{
    auto const movie = open(StereoRamp(1000));
    movie->setVolume(0.35F);
    EXPECT_EQ(movie->volume(), 89.0F / 256.0F);
    movie->setVolume(1.0F);
    EXPECT_EQ(movie->volume(), 1.0F);
    movie->setVolume(1e9F);
    EXPECT_GT(movie->volume(), 1.0F);
    movie->setVolume(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(movie->volume(), 0.0F);
}

TEST_F(CBMovieTest, SetMutedMutesWhateverItIsToldAndNeverUnmutes)
{
    auto const movie = open(StereoRamp(44100));
    movie->setVolume(0.5F);
    movie->start();
    movie->setMuted(false);
    EXPECT_TRUE(movie->isMuted());
    EXPECT_EQ(movie->volume(), -0.5F);
    EXPECT_THAT(hear(1000), Each(0));
    movie->setMuted(false);
    EXPECT_TRUE(movie->isMuted());
    movie->setMuted(true);
    EXPECT_TRUE(movie->isMuted());
}

TEST_F(CBMovieTest, PercentIsTruncatedToAWhole)
{
    auto const movie = open(StereoRamp(10000));
    movie->gotoPercentFinished(50.9F);
    EXPECT_EQ(movie->time(), 5000);
    EXPECT_EQ(movie->percentFinished(), 50.0F);
    movie->gotoPercentFinished(0.9F);
    EXPECT_EQ(movie->time(), 0);
    movie->gotoPercentFinished(1000.0F);
    EXPECT_EQ(movie->time(), 10000);
    movie->gotoPercentFinished(-5.0F);
    EXPECT_EQ(movie->time(), 0);
}

TEST_F(CBMovieTest, SoundAloneHasAnEmptyBoxAndNowhereToStep)
{
    auto const movie = open(StereoRamp(10000));
    movie->gotoTime(5000);
    movie->stepForward();
    EXPECT_EQ(movie->time(), 5000);
    movie->stepBack();
    EXPECT_EQ(movie->time(), 5000);
    EXPECT_EQ(movie->movieRect().size.width, 0.0F);
    EXPECT_EQ(movie->movieRect().size.height, 0.0F);
    movie->gotoPosterFrame();
    EXPECT_EQ(movie->time(), 0);
}

TEST_F(CBMovieTest, SelectionIsKeptAndNotApplied)
{
    auto const movie = open(StereoRamp(10000));
    movie->setSelection({2000, 500});
    movie->setPlaysSelectionOnly(true);
    EXPECT_EQ(movie->selection().start, 2000);
    EXPECT_EQ(movie->selection().duration, 500);
    EXPECT_TRUE(movie->playsSelectionOnly());
    movie->start();
    EXPECT_EQ(hear(1000), StereoRamp(1000));
}

TEST_F(CBMovieTest, NameIsTakenOnceAndKeepsTheMovieAlive)
{
    std::weak_ptr<CBMovie> watched;
    {
        auto const movie = open(StereoRamp(1000));
        auto const other = open(StereoRamp(1000));
        EXPECT_TRUE(movie->setName("first"));
        EXPECT_TRUE(movie->setName("first")) << "its own name";
        EXPECT_FALSE(other->setName("first"));
        EXPECT_FALSE(other->name());
        EXPECT_EQ(CBMovie::movieNamed("first"), movie);
        watched = movie;
    }
    ASSERT_FALSE(watched.expired());
    EXPECT_TRUE(watched.lock()->setName("second"));
    EXPECT_FALSE(CBMovie::movieNamed("first"));
    EXPECT_EQ(CBMovie::movieNamed("second"), watched.lock());
    EXPECT_EQ(watched.lock()->name(), "second");
}

TEST_F(CBMovieTest, UnnamedStoppedMovieGoesWithItsLastUser)
{
    auto movie = open(StereoRamp(1000));
    movie->setLoopMode(kLoopPalindrome);
    std::weak_ptr<CBMovie> const watched = movie;
    movie.reset();
    EXPECT_TRUE(watched.expired());
}
