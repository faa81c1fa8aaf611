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
    EXPECT_EQ(CharactersForKey(Key(SDLK_F1), ""), One(0xF704));
    EXPECT_EQ(CharactersForKey(Key(SDLK_F12), ""), One(0xF70F));
    EXPECT_EQ(CharactersForKey(Key(SDLK_F15), ""), One(0xF712));
    EXPECT_EQ(CharactersForKey(Key(SDLK_INSERT), ""), One(0xF727));
    EXPECT_EQ(CharactersForKey(Key(SDLK_DELETE), ""), One(0xF728));
    EXPECT_EQ(CharactersForKey(Key(SDLK_PAGEDOWN), ""), One(0xF72D));
    EXPECT_EQ(CharactersForKey(Key(SDLK_PAUSE), ""), One(0xF730));
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
    EXPECT_EQ(CharactersForKey(Key(SDLK_KP_4, KMOD_NUM), "4"), u"4");
    EXPECT_EQ(CharactersForKey(Key(SDLK_KP_4, KMOD_NUM | KMOD_LCTRL), ""), u"4");
    EXPECT_EQ(CharactersForKey(Key(SDLK_KP_4), ""), One(KeyCode::kLeftArrow));
    EXPECT_EQ(CharactersForKey(Key(SDLK_KP_PLUS), ""), u"+");
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
