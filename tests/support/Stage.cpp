// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/Stage.h"

#include "audio/GameMusic.h"
#include "audio/GameSound.h"
#include "core/Game.h"
#include "settings/GameSettings.h"
#include "support/FrozenSound.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/window/EventFactory.h"

namespace
{

// Every setting that the game, its menus or their tests write.
void RestoreSettings()
{
    GameSettings::Initialize();
    GameSettings::SetIntParam(setting::kFullscreen, 1);
    GameSettings::SetFloatParam(setting::kFogEndLow, 20.0F);
    GameSettings::SetFloatParam(setting::kFogEndHigh, 50.0F);
    GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, 0.5F);
    GameSettings::SetIntParam(setting::kAsteroidsSmoothness, 7);
    GameSettings::SetFloatParam(setting::kMouseSensitivity, 1.0F);
    GameSettings::SetFloatParam(setting::kMouseDeadCenterPct, 0.05F);
    GameSettings::SetUniCharParam(setting::kKeyThrustUp, u'w');
    GameSettings::SetUniCharParam(setting::kKeyThrustDown, u's');
    GameSettings::SetUniCharParam(setting::kKeyPause, 0x1B);
    GameSettings::SetIntParam(setting::kMouseInvert, 0);
    GameSettings::SetFloatParam(setting::kSoundVolume, 1.0F);
    GameSettings::SetFloatParam(setting::kMusicVolume, 0.5F);
    GameSettings::SetIntArrayParam(setting::kRaceTimes, nullptr, 0);
}

} // namespace

Stage::Stage()
{
    RestoreSettings();
    recording::reset();
    frozen::Silence();
    GameSound::SetVolume(true);
}

Stage::~Stage()
{
    Menu::ClearCurrent();
}

GameStage::GameStage()
{
    Game::Init(probe::kWidth, probe::kHeight);
}

GameStage::~GameStage()
{
    GameMusic::StopTrack();
    delete Game::pGame;
    Game::pGame = nullptr;
}

void GameStage::send(platform::Event const& event)
{
    GameEvent const wrapped = events::Wrapped(event);
    Game::pGame->HandleEvent(&wrapped);
}
