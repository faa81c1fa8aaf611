// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The playlist with the real tracks and a real settings file. Every run of the game is a process of its own,
// which ends with the number of the track that its last race played.
#include "audio/GameMusic.h"

#include "audio/GameSoundNSMovie.h"
#include "platform/base/Bundle.h"
#include "platform/base/RunLoop.h"
#include "platform/settings/Preferences.h"
#include "platform/sound/SoundFile.h"
#include "platform/sound/TestMedia.h"
#include "settings/GameSettings.h"
#include "support/CapturedLog.h"
#include "support/OwnHome.h"
#include "ui/MenuGame.h"

#include <gmock/gmock.h>

#include <cstdlib>

using namespace testing;
using namespace testmedia;

namespace
{

class GameMusicTest : public Test
{
private:
    test::OwnHome m_home;
};

int PlayingTrack()
{
    int playing = -1;
    for (int i = 0; i < GameMusic::kTrackCount; ++i)
    {
        if (GameMusic::GetTrack(i) != nullptr && GameMusic::GetTrack(i)->IsPlaying())
        {
            playing = i;
        }
    }
    return playing;
}

constexpr int kSilent = 9;

[[noreturn]] void PlayRaces(int count, float musicVolume)
{
    GameSettings::Initialize();
    for (int i = 0; i < count; ++i)
    {
        GameMusic::StopTrack();
        GameMusic::SetTrackVolume(musicVolume);
        GameMusic::StartTrack();
    }
    int const playing = PlayingTrack();
    GameMusic::StopTrack();
    platform::Preferences::standard().synchronize();
    std::exit(playing < 0 ? kSilent : playing);
}

} // namespace

TEST_F(GameMusicTest, EachRacePlaysTheNextTrackAcrossRestarts)
{
    EXPECT_EXIT(PlayRaces(1, 0.5F), ExitedWithCode(0), "");
    EXPECT_EXIT(PlayRaces(1, 0.5F), ExitedWithCode(1), "");
    EXPECT_EXIT(PlayRaces(3, 0.5F), ExitedWithCode(0), "");
}

TEST_F(GameMusicTest, WithoutVolumeTheListStillAdvances)
{
    EXPECT_EXIT(PlayRaces(2, 0.0F), ExitedWithCode(kSilent), "");
    EXPECT_EXIT(PlayRaces(1, 0.5F), ExitedWithCode(2), "");
}

TEST_F(GameMusicTest, StoredIndexTwoGoesOnWithTheFourthTrack)
{
    EXPECT_EXIT(
        {
            GameSettings::Initialize();
            GameSettings::SetIntParam(setting::kMusicLastTrackIndex, 2);
            PlayRaces(1, 0.5F);
        },
        ExitedWithCode(3), "");
}

TEST_F(GameMusicTest, AbsurdStoredIndexIsReduced)
{
    EXPECT_EXIT(
        {
            GameSettings::Initialize();
            GameSettings::SetIntParam(setting::kMusicLastTrackIndex, 2147483647);
            GameMusic::InitTracks();
            GameMusic::SetTrackVolume(0.25F);
            GameMusic::StopTrack();
            PlayRaces(1, 0.5F);
        },
        ExitedWithCode(0), "");
}

// The fifth race plays the first race's track again.
TEST_F(GameMusicTest, NextRaceSwitchesToTheNextTrackAndEachStartsAtItsBeginning)
{
    EXPECT_EXIT(
        {
            Loopback loopback;
            auto const hear = [&loopback]
            { return loopback.renderFrames(30 * kFrame, platform::RunLoop::runTimersOnce); };
            GameSettings::Initialize();
            GameMusic::SetTrackVolume(0.5F);
            Samples first;
            bool isRight = true;
            for (int race = 0; race < 5; ++race)
            {
                GameMusic::StartTrack();
                Samples const heard = AfterFade(hear());
                isRight =
                    isRight && PlayingTrack() == race % 4 && (race == 0 || (heard == first) == (race == 4));
                first = race == 0 ? heard : first;
                hear();
                GameMusic::StopTrack();
                isRight = isRight && PlayingTrack() == -1;
            }
            std::exit(isRight ? 0 : 1);
        },
        ExitedWithCode(0), "");
}

// 0.5 of the third track's 0.7, in the 256ths in which a movie keeps its volume.
TEST_F(GameMusicTest, ThirdTrackAtHalfMusicVolumeIsHeardAt35Hundredths)
{
    auto const path = platform::Bundle::pathForResource("SerialK.mp3", "Music");
    ASSERT_TRUE(path);
    auto file = platform::SoundFile::open(*path);
    constexpr int kSeconds = 10;
    Samples decoded(2 * 44100 * kSeconds);
    file->read(0, decoded);

    Loopback loopback;
    GameSettings::Initialize();
    GameSettings::SetIntParam(setting::kMusicLastTrackIndex, 1);
    GameMusic::InitTracks();
    GameMusic::SetTrackVolume(0.5F);
    GameMusic::StartTrack();
    ASSERT_EQ(PlayingTrack(), 2);
    MenuSound().MouseUp(1); // stores another volume, for the next race
    ASSERT_EQ(GameSettings::GetFloatParam(setting::kMusicVolume), 1.0F);
    double heardPower = 0.0;
    double filePower = 0.0;
    std::size_t at = 0;
    while (at < decoded.size())
    {
        platform::RunLoop::runTimersOnce();
        for (double const sample :
             loopback.render(std::min(kFrame, static_cast<int>(decoded.size() - at) / 2)))
        {
            heardPower += sample * sample;
            filePower += static_cast<double>(decoded[at]) * decoded[at];
            ++at;
        }
    }
    GameMusic::StopTrack();
    EXPECT_GT(filePower, 0.0);
    EXPECT_NEAR(10.0 * std::log10(heardPower / filePower), 20.0 * std::log10(0.35), 0.1);
    GameSettings::SetFloatParam(setting::kMusicVolume, 0.5F);
    platform::Preferences::standard().synchronize(); // not when the folder is gone
}

TEST(GameSoundNSMovieTest, MissingTrackIsSilentAndToldOnce)
{
    CapturedLog log;
    GameSoundNSMovie movie("NoSuchTrack.mp3");
    EXPECT_THAT(log.lines(), ElementsAre(EndsWith("/Music/NoSuchTrack.mp3 cannot be played")));
    movie.SetVolume(1.0F);
    movie.Play();
    EXPECT_FALSE(movie.IsPlaying());
    movie.Stop();
}

TEST(GameSoundNSMovieTest, PlayLeavesAPlayingTrackAloneAndStopRewinds)
{
    Loopback loopback;
    GameSoundNSMovie movie("Sable.mp3");
    auto const hear = [&](int frames)
    { return loopback.renderFrames(frames * kFrame, platform::RunLoop::runTimersOnce); };
    movie.Play();
    EXPECT_TRUE(movie.IsPlaying());
    auto const beginning = hear(60);
    movie.Play();
    EXPECT_NE(hear(60), beginning);
    movie.Stop();
    EXPECT_FALSE(movie.IsPlaying());
    EXPECT_THAT(AfterFade(hear(10)), Each(0));
    movie.Play();
    // libmpg123 for arm64 rounds a sample otherwise now and then where it has gone back.
    EXPECT_THAT(hear(60), Pointwise(FloatNear(1.0F), beginning));
}
