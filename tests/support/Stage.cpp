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

namespace
{

// Every setting that the game, its menus or their tests write.
void RestoreSettings()
{
    GameSettings::Initialize();
    GameSettings::SetIntParam("Fullscreen", 1);
    GameSettings::SetFloatParam("FogEndLow", 20.0F);
    GameSettings::SetFloatParam("FogEndHigh", 50.0F);
    GameSettings::SetFloatParam("_AsteroidsDensityCenter", 0.5F);
    GameSettings::SetIntParam("_AsteroidsSmoothness", 7);
    GameSettings::SetFloatParam("MouseSensitivity", 1.0F);
    GameSettings::SetFloatParam("MouseDeadCenterPct", 0.05F);
    GameSettings::SetUniCharParam("KeyDefaultThrustUp", u'w');
    GameSettings::SetUniCharParam("KeyDefaultThrustDown", u's');
    GameSettings::SetUniCharParam("KeyDefaultPause", 0x1B);
    GameSettings::SetIntParam("MouseInvert", 0);
    GameSettings::SetFloatParam("SoundVolume", 1.0F);
    GameSettings::SetFloatParam("MusicVolume", 0.5F);
    GameSettings::SetIntArrayParam("RaceTimes", nullptr, 0);
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
