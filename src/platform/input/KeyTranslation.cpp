// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/input/KeyTranslation.h"

#include "platform/base/Encoding.h"
#include "platform/input/KeyCodes.h"

#include <glib.h>

#include <algorithm>
#include <array>

namespace platform
{

namespace
{

struct KeyCharacter
{
    SDL_Keycode key;
    char16_t character;
};

// Keys that mean the same in every layout and with every modifier.
constexpr std::array kFixedKeys = {
    KeyCharacter{SDLK_KP_ENTER, KeyCode::kEnter},
    KeyCharacter{SDLK_TAB, KeyCode::kTab},
    KeyCharacter{SDLK_RETURN, KeyCode::kReturn},
    KeyCharacter{SDLK_RETURN2, KeyCode::kReturn},
    KeyCharacter{SDLK_ESCAPE, KeyCode::kEscape},
    KeyCharacter{SDLK_SPACE, KeyCode::kSpace},
    KeyCharacter{SDLK_BACKSPACE, KeyCode::kBackspace},
    KeyCharacter{SDLK_UP, KeyCode::kUpArrow},
    KeyCharacter{SDLK_DOWN, KeyCode::kDownArrow},
    KeyCharacter{SDLK_LEFT, KeyCode::kLeftArrow},
    KeyCharacter{SDLK_RIGHT, KeyCode::kRightArrow},
    KeyCharacter{SDLK_INSERT, KeyCode::kInsert},
    KeyCharacter{SDLK_DELETE, KeyCode::kDelete},
    KeyCharacter{SDLK_HOME, KeyCode::kHome},
    KeyCharacter{SDLK_END, KeyCode::kEnd},
    KeyCharacter{SDLK_PAGEUP, KeyCode::kPageUp},
    KeyCharacter{SDLK_PAGEDOWN, KeyCode::kPageDown},
    KeyCharacter{SDLK_PRINTSCREEN, KeyCode::kPrintScreen},
    KeyCharacter{SDLK_SCROLLLOCK, KeyCode::kScrollLock},
    KeyCharacter{SDLK_PAUSE, KeyCode::kPause},
    KeyCharacter{SDLK_SYSREQ, KeyCode::kSysReq},
    KeyCharacter{SDLK_STOP, KeyCode::kStop},
    KeyCharacter{SDLK_APPLICATION, KeyCode::kMenu},
    KeyCharacter{SDLK_MENU, KeyCode::kMenu},
    KeyCharacter{SDLK_NUMLOCKCLEAR, KeyCode::kClearNumLock},
    KeyCharacter{SDLK_CLEAR, KeyCode::kClear},
    KeyCharacter{SDLK_KP_CLEAR, KeyCode::kClear},
    KeyCharacter{SDLK_HELP, KeyCode::kHelp},
};

struct KeypadKey
{
    SDL_Keycode key;
    char16_t withNumLock;
    char16_t withoutNumLock;
};

constexpr std::array kKeypadKeys = {
    KeypadKey{SDLK_KP_0, u'0', KeyCode::kInsert},
    KeypadKey{SDLK_KP_1, u'1', KeyCode::kEnd},
    KeypadKey{SDLK_KP_2, u'2', KeyCode::kDownArrow},
    KeypadKey{SDLK_KP_3, u'3', KeyCode::kPageDown},
    KeypadKey{SDLK_KP_4, u'4', KeyCode::kLeftArrow},
    KeypadKey{SDLK_KP_5, u'5', KeyCode::kBegin},
    KeypadKey{SDLK_KP_6, u'6', KeyCode::kRightArrow},
    KeypadKey{SDLK_KP_7, u'7', KeyCode::kHome},
    KeypadKey{SDLK_KP_8, u'8', KeyCode::kUpArrow},
    KeypadKey{SDLK_KP_9, u'9', KeyCode::kPageUp},
    KeypadKey{SDLK_KP_PERIOD, u'.', KeyCode::kDelete},
    KeypadKey{SDLK_KP_COMMA, u',', u','},
    KeypadKey{SDLK_KP_DIVIDE, u'/', u'/'},
    KeypadKey{SDLK_KP_MULTIPLY, u'*', u'*'},
    KeypadKey{SDLK_KP_MINUS, u'-', u'-'},
    KeypadKey{SDLK_KP_PLUS, u'+', u'+'},
    KeypadKey{SDLK_KP_EQUALS, u'=', u'='},
};

template <typename Table>
auto Find(Table const& table, SDL_Keycode key)
{
    return std::ranges::find_if(table, [key](auto const& row) { return row.key == key; });
}

// 0 when the key is none of them.
char16_t FixedCharacter(SDL_Keycode key)
{
    if (key >= SDLK_F1 && key <= SDLK_F12)
    {
        return static_cast<char16_t>(KeyCode::kF1 + (key - SDLK_F1));
    }
    if (key >= SDLK_F13 && key <= SDLK_F24)
    {
        return static_cast<char16_t>(KeyCode::kF1 + 12 + (key - SDLK_F13));
    }
    auto const row = Find(kFixedKeys, key);
    return row != kFixedKeys.end() ? row->character : char16_t{0};
}

char16_t KeypadCharacter(SDL_Keysym const& key)
{
    auto const row = Find(kKeypadKeys, key.sym);
    if (row == kKeypadKeys.end())
    {
        return 0;
    }
    return (key.mod & KMOD_NUM) != 0 ? row->withNumLock : row->withoutNumLock;
}

// For a key without usable text: the character that the layout gives the key; 0 when it gives none.
char16_t LayoutCharacter(SDL_Keysym const& key)
{
    if (key.sym < 0x20 || key.sym > 0xFFFF)
    {
        return 0;
    }
    bool const shift = (key.mod & KMOD_SHIFT) != 0;
    bool const capsLock = (key.mod & KMOD_CAPS) != 0;
    auto const plain = static_cast<gunichar>(key.sym);
    return static_cast<char16_t>(shift != capsLock ? g_unichar_toupper(plain) : plain);
}

// The accent of a dead key comes from Xlib as one byte of Latin-1, which SDL hands on as it is.
bool IsDeadKeysAccent(std::string const& typedText)
{
    return typedText.size() == 1 && static_cast<unsigned char>(typedText.front()) >= 0xA0;
}

std::u16string TypedCharacters(SDL_Keysym const& key, std::string const& typedText)
{
    if ((key.mod & (KMOD_CTRL | KMOD_ALT | KMOD_GUI)) != 0)
    {
        return {}; // these change or suppress the text that comes with a key
    }
    if (IsDeadKeysAccent(typedText))
    {
        return {static_cast<unsigned char>(typedText.front())};
    }
    bool const isUtf8 = g_utf8_validate(typedText.c_str(), -1, nullptr) != 0;
    return isUtf8 ? Utf16FromUtf8(typedText) : std::u16string();
}

} // namespace

std::u16string CharactersForKey(SDL_Keysym const& key, std::string const& typedText)
{
    if (char16_t const fixed = FixedCharacter(key.sym); fixed != 0)
    {
        return {fixed};
    }
    if (std::u16string typed = TypedCharacters(key, typedText); !typed.empty())
    {
        return typed;
    }
    for (char16_t const character : {KeypadCharacter(key), LayoutCharacter(key)})
    {
        if (character != 0)
        {
            return {character};
        }
    }
    return {};
}

} // namespace platform
