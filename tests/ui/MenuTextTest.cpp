// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "ui/MenuText.h"

#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "ui/MenuGame.h"

#include <gtest/gtest.h>

namespace
{

TEST(MenuText, FormatsAreFilledIn)
{
    EXPECT_EQ(LocalizedFormat("Total Time: %d:%02d", 1, 5), "Total Time: 1:05");
    EXPECT_EQ(LocalizedFormat("#%d:  %d:%02d", 3, 10, 0), "#3:  10:00");
}

TEST(MenuText, ATextWithoutATranslationIsShownAsItIs)
{
    recording::reset();
    MenuPaused menu;
    SetLocalizedItem(menu, 2, "a text that no catalogue holds: ");
    EXPECT_EQ(probe::TextOf(menu, 2), "a text that no catalogue holds: ");
}

TEST(MenuText, WordsMayMoveAboutTheConversions)
{
    EXPECT_TRUE(HaveSameConversions("Total Time: %d:%02d", "%d:%02d insgesamt"));
    EXPECT_TRUE(HaveSameConversions("no conversion", "keine"));
    EXPECT_TRUE(HaveSameConversions("", ""));
}

TEST(MenuText, ConversionsMustBeTheSameInTheSameOrder)
{
    EXPECT_FALSE(HaveSameConversions("%d:%02d", "%02d:%d"));
    EXPECT_FALSE(HaveSameConversions("%d:%02d", "%d"));
    EXPECT_FALSE(HaveSameConversions("%d", "%d:%02d"));
    EXPECT_FALSE(HaveSameConversions("%d", "%s"));
    EXPECT_FALSE(HaveSameConversions("%d", "%2$d"));
    EXPECT_FALSE(HaveSameConversions("%d", "%ld"));
    EXPECT_FALSE(HaveSameConversions("words", "100 %"));
    EXPECT_FALSE(HaveSameConversions("words", "%n"));
}

TEST(MenuText, APercentSignIsAConversionToo)
{
    EXPECT_TRUE(HaveSameConversions("%d %%", "%d %%"));
    EXPECT_FALSE(HaveSameConversions("%d %%", "%d"));
    EXPECT_FALSE(HaveSameConversions("%%d", "%d"));
}

} // namespace
