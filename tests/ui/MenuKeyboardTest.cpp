// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "ui/MenuKeyboard.h"

#include "settings/GameSettings.h"
#include "support/FrozenSound.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "ui/MenuGame.h"
#include "ui/Overlay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using probe::Click;
using probe::LetGo;
using probe::TextOf;
using probe::TextsOf;
using probe::Type;
using testing::ElementsAre;

constexpr TextSetting kUp = setting::kKeyThrustUp;
constexpr TextSetting kDown = setting::kKeyThrustDown;
constexpr TextSetting kPause = setting::kKeyPause;

class MenuKeyboardTest : public Stage
{
protected:
    MenuKeyboardTest() { probe::Show<MenuKeyboard>(); }
    Menu& menu() { return *Menu::GetCurrent(); }
};

TEST_F(MenuKeyboardTest, ShowsTheBindings)
{
    EXPECT_THAT(TextsOf(menu()),
                ElementsAre("Increase Throttle Key: w", "Decrease Throttle Key: s", "Pause Game key: Esc",
                            "Invert Mouse Up/Down:  NO", "", "Back to Options"));
    EXPECT_EQ(probe::BoxOf(menu(), 5).y, 300 + 200);
    EXPECT_EQ(probe::FontSizeOf(menu().GetItem(0)), 20.0F);
}

TEST_F(MenuKeyboardTest, AClickAsksForAKeyAndTheKeyIsBound)
{
    Click(0);
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: [Type a key]");
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u'w');
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
    Type(u'\uF700');
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), 0xF700);
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: Up Arrow");
}

TEST_F(MenuKeyboardTest, ALetterIsShownAsItself)
{
    Click(0);
    Type(u'a');
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: a");
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u'a');
}

TEST_F(MenuKeyboardTest, EachItemBindsItsOwnKey)
{
    Click(1);
    EXPECT_EQ(TextOf(menu(), 1), "Decrease Throttle Key: [Type a key]");
    Type(u'x');
    Click(2);
    EXPECT_EQ(TextOf(menu(), 2), "Pause Game key: [Type a key]");
    Type(u'p');
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u'w');
    EXPECT_EQ(GameSettings::GetUniCharParam(kDown), u'x');
    EXPECT_EQ(GameSettings::GetUniCharParam(kPause), u'p');
    EXPECT_EQ(TextOf(menu(), 1), "Decrease Throttle Key: x");
    EXPECT_EQ(TextOf(menu(), 2), "Pause Game key: p");
}

TEST_F(MenuKeyboardTest, TheReleaseOfTheBoundKeyChangesNothing)
{
    Click(0);
    Type(u'a');
    LetGo(u'a');
    LetGo(u'b');
    Type(u'c');
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u'a');
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: a");
}

TEST_F(MenuKeyboardTest, WithoutACaptureKeysAreIgnored)
{
    Type(u'q');
    EXPECT_TRUE(menu().KeyDown(u'q'));
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u'w');
    EXPECT_EQ(GameSettings::GetUniCharParam(kDown), u's');
    EXPECT_EQ(GameSettings::GetUniCharParam(kPause), 0x1B);
}

TEST_F(MenuKeyboardTest, KeyDownAnswersTrueDuringACapture)
{
    menu().MouseUp(0);
    EXPECT_TRUE(menu().KeyDown(u'q'));
}

TEST_F(MenuKeyboardTest, EscapeAndReturnCanBeBound)
{
    Click(0);
    Type(0x1B);
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: Esc");
    Click(1);
    Type(0x0D);
    EXPECT_EQ(TextOf(menu(), 1), "Decrease Throttle Key: Return");
    EXPECT_EQ(GameSettings::GetUniCharParam(kDown), 0x0D);
}

TEST_F(MenuKeyboardTest, WaitsForAKeyFromTheClickToTheKey)
{
    EXPECT_FALSE(menu().WaitsForKey());
    for (int const item : {0, 1, 2})
    {
        Click(item);
        EXPECT_TRUE(menu().WaitsForKey());
        Type(u'x');
        EXPECT_FALSE(menu().WaitsForKey());
    }
    Click(3);
    EXPECT_FALSE(menu().WaitsForKey());
}

TEST_F(MenuKeyboardTest, TwoActionsMayShareAKey)
{
    Click(0);
    Type(u's');
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u's');
    EXPECT_EQ(GameSettings::GetUniCharParam(kDown), u's');
}

TEST_F(MenuKeyboardTest, ACapitalIsKeptAsSuch)
{
    Click(0);
    Type(u'W');
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: W");
}

TEST_F(MenuKeyboardTest, ASecondClickMovesTheCaptureAndLeavesTheFirstText)
{
    Click(0);
    Click(1);
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: [Type a key]");
    EXPECT_EQ(TextOf(menu(), 1), "Decrease Throttle Key: [Type a key]");
    Type(u'x');
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u'w');
    EXPECT_EQ(GameSettings::GetUniCharParam(kDown), u'x');
    EXPECT_EQ(TextOf(menu(), 0), "Increase Throttle Key: [Type a key]");
    EXPECT_EQ(TextOf(menu(), 1), "Decrease Throttle Key: x");
    EXPECT_EQ(TextOf(MenuKeyboard(), 0), "Increase Throttle Key: w");
}

TEST_F(MenuKeyboardTest, InversionDoesNotDisturbACapture)
{
    Click(2);
    Click(3);
    EXPECT_EQ(TextOf(menu(), 3), "Invert Mouse Up/Down:  YES");
    Type(u'p');
    EXPECT_EQ(GameSettings::GetUniCharParam(kPause), u'p');
}

TEST_F(MenuKeyboardTest, LeavingDiscardsTheCapture)
{
    Click(0);
    Click(5);
    ASSERT_NE(probe::Current<MenuOptions>(), nullptr);
    Type(u'z');
    EXPECT_EQ(GameSettings::GetUniCharParam(kUp), u'w');
    EXPECT_EQ(TextOf(MenuKeyboard(), 0), "Increase Throttle Key: w");
}

TEST_F(MenuKeyboardTest, InversionToggles)
{
    Click(3);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kMouseInvert), 1);
    EXPECT_EQ(TextOf(menu(), 3), "Invert Mouse Up/Down:  YES");
    Click(3);
    EXPECT_EQ(GameSettings::GetIntParam(setting::kMouseInvert), 0);
    EXPECT_EQ(TextOf(menu(), 3), "Invert Mouse Up/Down:  NO");
}

TEST_F(MenuKeyboardTest, AnyInversionButZeroIsYesAndBecomesZero)
{
    for (int const stored : {-1, 2, 1000000})
    {
        GameSettings::SetIntParam(setting::kMouseInvert, stored);
        MenuKeyboard fresh;
        EXPECT_EQ(TextOf(fresh, 3), "Invert Mouse Up/Down:  YES");
        EXPECT_TRUE(fresh.MouseUp(3));
        EXPECT_EQ(GameSettings::GetIntParam(setting::kMouseInvert), 0);
    }
}

TEST_F(MenuKeyboardTest, TheSpacerHighlightsButDoesNothing)
{
    probe::MoveOnto(4);
    EXPECT_TRUE(probe::IsHighlighted(menu(), 4));
    Click(4);
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
    for (int const item : {-1, 4, 6})
    {
        EXPECT_FALSE(menu().MouseUp(item));
    }
}

TEST_F(MenuKeyboardTest, HandSetBindingsOfAnyLengthAreShown)
{
    GameSettings::SetStringParam(kUp, "");
    GameSettings::SetStringParam(kDown, "several");
    GameSettings::SetStringParam(kPause, "\xC3\xA9"); // e acute
    MenuKeyboard const fresh;
    EXPECT_EQ(TextOf(fresh, 0), "Increase Throttle Key: ");
    EXPECT_EQ(TextOf(fresh, 1), "Decrease Throttle Key: s");
    EXPECT_EQ(TextOf(fresh, 2), "Pause Game key: \xC3\xA9");
}

struct NamedKey
{
    int code;
    std::string name;
};

std::vector<NamedKey> AllNames()
{
    std::vector<NamedKey> keys{{0x1B, "Esc"},          {0x20, "Space"},        {0x09, "Tab"},
                               {0x0D, "Return"},       {0x03, "Enter"},        {0xF700, "Up Arrow"},
                               {0xF701, "Down Arrow"}, {0xF702, "Left Arrow"}, {0xF703, "Right Arrow"}};
    int code = 0xF704;
    for (char const* name :
         {"F1", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9", "F10", "F11", "F12", "F13", "F14", "F15"})
    {
        keys.push_back({code++, name});
    }
    code = 0xF727;
    for (char const* name :
         {"Insert",   "Delete",     "Home",     "Begin",   "End",         "Page Up", "Page Dn",
          "PrtScrn",  "ScrollLock", "Pause",    "SysReq",  "Break",       "Reset",   "Stop",
          "Menu",     "UserFn",     "System",   "PrintFn", "Clear/NumLk", "Clear",   "Ins Line",
          "Del Line", "Ins Char",   "Del Char", "Prev Fn"})
    {
        keys.push_back({code++, name});
    }
    keys.push_back({0xF746, "Help"});
    return keys;
}

TEST(KeyNames, FiftyKeysHaveNames)
{
    std::vector<NamedKey> const keys = AllNames();
    ASSERT_EQ(keys.size(), 50U);
    for (NamedKey const& key : keys)
    {
        EXPECT_EQ(MenuKeyboard::KeyName(static_cast<unsigned short>(key.code)), key.name)
            << std::hex << key.code;
    }
}

TEST(KeyNames, AllOthersAreShownAsThemselves)
{
    EXPECT_EQ(MenuKeyboard::KeyName(u'a'), "a");
    EXPECT_EQ(MenuKeyboard::KeyName(u'A'), "A");
    EXPECT_EQ(MenuKeyboard::KeyName(0x20AC), "\xE2\x82\xAC"); // euro
    EXPECT_EQ(MenuKeyboard::KeyName(0x7F), "\x7F");           // backspace has no name
    EXPECT_EQ(MenuKeyboard::KeyName(0xF713), "\xEF\x9C\x93"); // what would be F16
}

} // namespace
