// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "audio/GameSound.h"

#include "audio/GameSoundNSSound.h"
#include "support/FrozenSound.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{

class GameSoundTest : public testing::Test
{
protected:
    GameSoundTest()
    {
        frozen::Silence();
        GameSound::SetVolume(true);
    }
    ~GameSoundTest() override { GameSound::SetVolume(true); }
};

TEST_F(GameSoundTest, EveryEffectOfTheGamePlays)
{
    for (char const* name : {"Fanfare.AIFF", "Controls.AIFF", "Starter.AIFF", "HiScore.AIFF", "Wham.AIFF",
                             "Graze.AIFF", "Attention.AIFF", "Rollover.AIFF", "Click.AIFF"})
    {
        GameSound const sound(name);
        EXPECT_FALSE(sound.IsPlaying()) << name;
        sound.Play();
        EXPECT_TRUE(sound.IsPlaying()) << name;
    }
}

TEST_F(GameSoundTest, OffMeansThatPlayDoesNothing)
{
    GameSound const sound("Click.AIFF");
    GameSound::SetVolume(false);
    sound.Play();
    EXPECT_FALSE(sound.IsPlaying());
    GameSound::SetVolume(true);
    EXPECT_FALSE(sound.IsPlaying());
    sound.Play();
    EXPECT_TRUE(sound.IsPlaying());
}

TEST_F(GameSoundTest, SwitchingOffLetsASoundPlayToItsEnd)
{
    GameSound const sound("Click.AIFF");
    sound.Play();
    GameSound::SetVolume(false);
    EXPECT_TRUE(sound.IsPlaying());
}

TEST_F(GameSoundTest, AMisspelledNameIsASilentHandle)
{
    testing::internal::CaptureStderr();
    GameSound const sound("Clack.AIFF");
    sound.Play();
    EXPECT_FALSE(sound.IsPlaying());
    GameSoundNSSound adapter("Clack.AIFF");
    adapter.Play();
    adapter.Stop();
    EXPECT_FALSE(adapter.IsPlaying());
    testing::internal::GetCapturedStderr();
}

TEST_F(GameSoundTest, AThousandHandlesShareOneAdapter)
{
    std::vector<std::unique_ptr<GameSound>> handles;
    for (int i = 0; i < 1000; ++i)
    {
        handles.push_back(std::make_unique<GameSound>("Wham.AIFF"));
    }
    handles.front()->Play();
    for (auto const& handle : handles)
    {
        EXPECT_TRUE(handle->IsPlaying());
    }
}

TEST_F(GameSoundTest, ASoundOutlivesItsHandle)
{
    std::make_unique<GameSound>("Wham.AIFF")->Play();
    EXPECT_TRUE(GameSound("Wham.AIFF").IsPlaying());
}

TEST_F(GameSoundTest, AnAdapterPlaysAndStops)
{
    GameSoundNSSound adapter("Attention.AIFF");
    EXPECT_FALSE(adapter.IsPlaying());
    adapter.Play();
    adapter.Play(); // lost: it plays
    EXPECT_TRUE(adapter.IsPlaying());
    adapter.Stop();
    EXPECT_FALSE(adapter.IsPlaying());
    adapter.Stop();
    adapter.Play();
    EXPECT_TRUE(adapter.IsPlaying());
}

TEST_F(GameSoundTest, AdaptersOfOneFilePlayApart)
{
    GameSoundNSSound first("Attention.AIFF");
    GameSoundNSSound const second("Attention.AIFF");
    first.Play();
    EXPECT_FALSE(second.IsPlaying());
}

} // namespace
