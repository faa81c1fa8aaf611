// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What tests of game and menus start from: default settings, a new OpenGL context, silence, no menu, no game.
#pragma once

#include "platform/input/Event.h"

#include <gtest/gtest.h>

class Stage : public testing::Test
{
protected:
    Stage();
    ~Stage() override;
};

// With a game in its main menu, in a view of 800 x 600.
class GameStage : public Stage
{
protected:
    GameStage();
    ~GameStage() override;

    // To the game, as its view does.
    static void send(platform::Event const& event);
};
