// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What every test of game and menus starts from: default settings, an OpenGL as new, silence, no menu, no
// game.
#pragma once

#include <gtest/gtest.h>

class Stage : public testing::Test
{
protected:
    Stage();
    ~Stage() override;
};

// With a game that stands in its main menu, in a view of 800 x 600.
class GameStage : public Stage
{
protected:
    GameStage();
    ~GameStage() override;
};
