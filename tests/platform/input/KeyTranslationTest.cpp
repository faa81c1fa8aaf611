// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/input/KeyTranslation.h"

#include "platform/input/KeyCodes.h"

#include <gtest/gtest.h>

namespace
{

namespace KeyCode = platform::KeyCode;
using platform::CharactersForKey;

SDL_Keysym Key(SDL_Keycode code, int modifiers = KMOD_NONE)
{
    SDL_Keysym key{};
    key.sym = code;
    key.scancode = SDL_GetScancodeFromKey(code);
    key.mod = static_cast<Uint16>(modifiers);
    return key;
}

std::u16string One(char16_t unit)
{
    return std::u16string(1, unit);
}

TEST(KeyTranslationTest, TypedTextIsTheCharacter)
{
    EXPECT_EQ(CharactersForKey(Key(SDLK_w), "w"), u"w");
    EXPECT_EQ(CharactersForKey(Key(SDLK_w, KMOD_LSHIFT), "W"), u"W");
    EXPECT_EQ(CharactersForKey(Key(SDLK_1, KMOD_LSHIFT), "!"), u"!");
    EXPECT_EQ(CharactersForKey(Key(SDLK_e), "\xC3\xA9"), u"\u00E9");
}

TEST(KeyTranslationTest, DeadKeyIsItsAccent)
{
    EXPECT_EQ(CharactersForKey(Key(SDLK_EQUALS), "\xB4"), u"\u00B4");
    EXPECT_EQ(CharactersForKey(Key(SDLK_BACKQUOTE), "^"), u"^");
}

TEST(KeyTranslationTest, ControlAltAndCommandDoNotChangeTheCharacter)
{
    EXPECT_EQ(CharactersForKey(Key(SDLK_w, KMOD_LCTRL), ""), u"w");
    EXPECT_EQ(CharactersForKey(Key(SDLK_w, KMOD_LALT), ""), u"w");
    EXPECT_EQ(CharactersForKey(Key(SDLK_w, KMOD_LGUI), ""), u"w");
    EXPECT_EQ(CharactersForKey(Key(SDLK_w, KMOD_LCTRL | KMOD_LSHIFT), ""), u"W");
}

TEST(KeyTranslationTest, KeysWithoutACharacterHaveTheirCodes)
{
    EXPECT_EQ(CharactersForKey(Key(SDLK_RETURN), ""), One(0x0D));
    EXPECT_EQ(CharactersForKey(Key(SDLK_KP_ENTER), ""), One(0x03));
    EXPECT_EQ(CharactersForKey(Key(SDLK_ESCAPE), ""), One(0x1B));
    EXPECT_EQ(CharactersForKey(Key(SDLK_TAB), ""), One(0x09));
    EXPECT_EQ(CharactersForKey(Key(SDLK_TAB, KMOD_LSHIFT), ""), One(0x09));
    EXPECT_EQ(CharactersForKey(Key(SDLK_BACKSPACE), ""), One(0x7F));
    EXPECT_EQ(CharactersForKey(Key(SDLK_UP), ""), One(0xF700));
    EXPECT_EQ(CharactersForKey(Key(SDLK_DOWN), ""), One(0xF701));
    EXPECT_EQ(CharactersForKey(Key(SDLK_LEFT), ""), One(0xF702));
    EXPECT_EQ(CharactersForKey(Key(SDLK_RIGHT), ""), One(0xF703));
    for (int n = 0; n < 12; ++n)
    {
        EXPECT_EQ(CharactersForKey(Key(SDLK_F1 + n), ""), One(static_cast<char16_t>(0xF704 + n)));
        EXPECT_EQ(CharactersForKey(Key(SDLK_F13 + n), ""), One(static_cast<char16_t>(0xF710 + n)));
    }
    EXPECT_EQ(CharactersForKey(Key(SDLK_INSERT), ""), One(0xF727));
    EXPECT_EQ(CharactersForKey(Key(SDLK_DELETE), ""), One(0xF728));
    EXPECT_EQ(CharactersForKey(Key(SDLK_HOME), ""), One(0xF729));
    EXPECT_EQ(CharactersForKey(Key(SDLK_END), ""), One(0xF72B));
    EXPECT_EQ(CharactersForKey(Key(SDLK_PAGEUP), ""), One(0xF72C));
    EXPECT_EQ(CharactersForKey(Key(SDLK_PAGEDOWN), ""), One(0xF72D));
    EXPECT_EQ(CharactersForKey(Key(SDLK_PRINTSCREEN), ""), One(0xF72E));
    EXPECT_EQ(CharactersForKey(Key(SDLK_SCROLLLOCK), ""), One(0xF72F));
    EXPECT_EQ(CharactersForKey(Key(SDLK_PAUSE), ""), One(0xF730));
    EXPECT_EQ(CharactersForKey(Key(SDLK_SYSREQ), ""), One(0xF731));
    EXPECT_EQ(CharactersForKey(Key(SDLK_STOP), ""), One(0xF734));
    EXPECT_EQ(CharactersForKey(Key(SDLK_APPLICATION), ""), One(0xF735));
    EXPECT_EQ(CharactersForKey(Key(SDLK_MENU), ""), One(0xF735));
    EXPECT_EQ(CharactersForKey(Key(SDLK_NUMLOCKCLEAR), ""), One(0xF739));
    EXPECT_EQ(CharactersForKey(Key(SDLK_CLEAR), ""), One(0xF73A));
    EXPECT_EQ(CharactersForKey(Key(SDLK_KP_CLEAR), ""), One(0xF73A));
    EXPECT_EQ(CharactersForKey(Key(SDLK_HELP), ""), One(0xF746));
}

// Those that no key of a PC's keyboard sends can be in the settings of others.
TEST(KeyTranslationTest, CodesWithoutAKeyHaveTheirNumbers)
{
    EXPECT_EQ(KeyCode::kBegin, 0xF72A);
    EXPECT_EQ(KeyCode::kBreak, 0xF732);
    EXPECT_EQ(KeyCode::kReset, 0xF733);
    EXPECT_EQ(KeyCode::kUserFn, 0xF736);
    EXPECT_EQ(KeyCode::kSystem, 0xF737);
    EXPECT_EQ(KeyCode::kPrintFn, 0xF738);
    EXPECT_EQ(KeyCode::kInsertLine, 0xF73B);
    EXPECT_EQ(KeyCode::kDeleteLine, 0xF73C);
    EXPECT_EQ(KeyCode::kInsertChar, 0xF73D);
    EXPECT_EQ(KeyCode::kDeleteChar, 0xF73E);
    EXPECT_EQ(KeyCode::kPreviousFn, 0xF73F);
}

TEST(KeyTranslationTest, SpaceIsItself)
{
    EXPECT_EQ(CharactersForKey(Key(SDLK_SPACE), " "), u" ");
    EXPECT_EQ(CharactersForKey(Key(SDLK_SPACE, KMOD_LCTRL), ""), u" ");
}

TEST(KeyTranslationTest, ModifierKeysAloneSendNothing)
{
    for (SDL_Keycode const code : {SDLK_LSHIFT, SDLK_RCTRL, SDLK_LALT, SDLK_LGUI, SDLK_CAPSLOCK})
    {
        EXPECT_EQ(CharactersForKey(Key(code), ""), u"") << SDL_GetKeyName(code);
    }
}

TEST(KeyTranslationTest, KeypadFollowsNumLock)
{
    struct
    {
        SDL_Keycode key;
        char16_t with;
        char16_t without;
    } const keys[] = {
        {SDLK_KP_0, u'0', 0xF727},    {SDLK_KP_1, u'1', 0xF72B},      {SDLK_KP_2, u'2', 0xF701},
        {SDLK_KP_3, u'3', 0xF72D},    {SDLK_KP_4, u'4', 0xF702},      {SDLK_KP_5, u'5', 0xF72A},
        {SDLK_KP_6, u'6', 0xF703},    {SDLK_KP_7, u'7', 0xF729},      {SDLK_KP_8, u'8', 0xF700},
        {SDLK_KP_9, u'9', 0xF72C},    {SDLK_KP_PERIOD, u'.', 0xF728}, {SDLK_KP_COMMA, u',', u','},
        {SDLK_KP_DIVIDE, u'/', u'/'}, {SDLK_KP_MULTIPLY, u'*', u'*'}, {SDLK_KP_MINUS, u'-', u'-'},
        {SDLK_KP_PLUS, u'+', u'+'},   {SDLK_KP_EQUALS, u'=', u'='},   {SDLK_KP_ENTER, 0x03, 0x03},
    };
    for (auto const& [key, with, without] : keys)
    {
        EXPECT_EQ(CharactersForKey(Key(key, KMOD_NUM), ""), One(with)) << SDL_GetKeyName(key);
        EXPECT_EQ(CharactersForKey(Key(key, KMOD_NUM | KMOD_LCTRL), ""), One(with)) << SDL_GetKeyName(key);
        EXPECT_EQ(CharactersForKey(Key(key), ""), One(without)) << SDL_GetKeyName(key);
    }
    EXPECT_EQ(CharactersForKey(Key(SDLK_KP_4, KMOD_NUM), "4"), u"4");
}

TEST(KeyTranslationTest, TextBeyondSixteenBitsIsTwoUnits)
{
    EXPECT_EQ(CharactersForKey(Key(SDLK_a), "\xF0\x9F\x9A\x80"), u"\U0001F680");
}

TEST(KeyTranslationTest, BrokenTextLeavesTheLayoutsCharacter)
{
    EXPECT_EQ(CharactersForKey(Key(SDLK_a), "\xC3"), u"\u00C3") << "one byte is a dead key's accent";
    EXPECT_EQ(CharactersForKey(Key(SDLK_a), "\xFF\xFE"), u"a");
}

} // namespace
