// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Which items do something when they are clicked: those clicks are heard.
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace
{

using testing::ElementsAre;

// A new menu for each click, as a click may replace it.
template <typename Kind, typename... Arguments>
std::vector<int> Actions(Arguments... arguments)
{
    constexpr int kBeyondAll = 20;
    std::vector<int> actions;
    for (int item = -1; item < kBeyondAll; ++item)
    {
        if (probe::Show<Kind>(arguments...).MouseUp(item))
        {
            actions.push_back(item);
        }
    }
    return actions;
}

using MenuActions = GameStage;

TEST_F(MenuActions, AreThoseOfEachMenuAndNoOther)
{
    constexpr int kSeconds = 100;
    EXPECT_THAT(Actions<MenuMain>(), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(Actions<MenuPaused>(), ElementsAre(0, 1));
    EXPECT_THAT(Actions<MenuEndGame>(kSeconds), ElementsAre(3, 4));
    EXPECT_THAT(Actions<MenuFastestTimes>(), ElementsAre(6, 7));
    EXPECT_THAT(Actions<MenuOptions>(), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(Actions<MenuGraphics>(), ElementsAre(0, 1, 2, 4));
    EXPECT_THAT(Actions<MenuSound>(), ElementsAre(0, 1, 3));
    EXPECT_THAT(Actions<MenuKeyboard>(), ElementsAre(0, 1, 2, 3, 5));
    EXPECT_THAT(Actions<MenuCredits>(), ElementsAre(15));
}

} // namespace
