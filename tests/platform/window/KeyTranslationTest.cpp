// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/KeyTranslation.h"

#include "platform/window/KeyCodes.h"

#include <gtest/gtest.h>

namespace
{

namespace KeyCode = platform::KeyCode;
using platform::CharactersForKey;
using platform::KeyTranslator;

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
    KeyTranslator translator;
    for (SDL_Keycode const code : {SDLK_LSHIFT, SDLK_RCTRL, SDLK_LALT, SDLK_LGUI, SDLK_CAPSLOCK})
    {
        EXPECT_FALSE(translator.keyDown(Key(code), "")) << SDL_GetKeyName(code);
        EXPECT_FALSE(translator.keyUp(Key(code))) << SDL_GetKeyName(code);
    }
}

TEST(KeyTranslationTest, ReleaseHasTheCharacterOfItsPress)
{
    KeyTranslator translator;
    auto const down = translator.keyDown(Key(SDLK_1, KMOD_LSHIFT), "!");
    ASSERT_TRUE(down);
    EXPECT_EQ(down->type, platform::EventType::KeyDown);
    EXPECT_EQ(down->charactersIgnoringModifiers, u"!");
    auto const up = translator.keyUp(Key(SDLK_1)); // Shift was let go first
    ASSERT_TRUE(up);
    EXPECT_EQ(up->type, platform::EventType::KeyUp);
    EXPECT_EQ(up->charactersIgnoringModifiers, u"!");
}

} // namespace
