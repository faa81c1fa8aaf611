// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A test with a whole game, as Game::Init makes it: in the menu, with a world behind it. The default settings are
// registered; an OpenGL must be linked.
#pragma once

#include "core/Game.h"
#include "settings/GameSettings.h"

#include <gtest/gtest.h>

#include <memory>

namespace test
{

class GameFixture : public testing::Test
{
protected:
    GameFixture()
    {
        GameSettings::Initialize();
        m_game = std::make_unique<Game>(1280, 720);
        Game::pGame = m_game.get();
    }

    ~GameFixture() override { Game::pGame = nullptr; }

    Game& GetGame() { return *m_game; }

private:
    std::unique_ptr<Game> m_game;
};

} // namespace test
