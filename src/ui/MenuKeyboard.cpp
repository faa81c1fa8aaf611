// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "ui/MenuKeyboard.h"

#include "platform/base/Bundle.h"
#include "platform/base/Encoding.h"
#include "platform/input/KeyCodes.h"
#include "settings/GameSettings.h"
#include "ui/MenuGame.h"
#include "ui/MenuText.h"

namespace
{

using platform::Bundle::localizedString;
namespace KeyCode = platform::KeyCode;

enum Item
{
    kThrustUp,
    kThrustDown,
    kPause,
    kInvert,
    kSpacer,
    kBack,
};

constexpr TextSetting kKeySettings[] = {setting::kKeyThrustUp, setting::kKeyThrustDown, setting::kKeyPause};

struct NamedKey
{
    unsigned short code;
    char const* name;
};

// Ends with code 0.
constexpr NamedKey kKeyNames[] = {
    {KeyCode::kEscape, "Esc"},
    {KeyCode::kSpace, "Space"},
    {KeyCode::kTab, "Tab"},
    {KeyCode::kReturn, "Return"},
    {KeyCode::kEnter, "Enter"},
    {KeyCode::kUpArrow, "Up Arrow"},
    {KeyCode::kDownArrow, "Down Arrow"},
    {KeyCode::kLeftArrow, "Left Arrow"},
    {KeyCode::kRightArrow, "Right Arrow"},
    {KeyCode::kF1, "F1"},
    {KeyCode::kF1 + 1, "F2"},
    {KeyCode::kF1 + 2, "F3"},
    {KeyCode::kF1 + 3, "F4"},
    {KeyCode::kF1 + 4, "F5"},
    {KeyCode::kF1 + 5, "F6"},
    {KeyCode::kF1 + 6, "F7"},
    {KeyCode::kF1 + 7, "F8"},
    {KeyCode::kF1 + 8, "F9"},
    {KeyCode::kF1 + 9, "F10"},
    {KeyCode::kF1 + 10, "F11"},
    {KeyCode::kF1 + 11, "F12"},
    {KeyCode::kF1 + 12, "F13"},
    {KeyCode::kF1 + 13, "F14"},
    {KeyCode::kF1 + 14, "F15"},
    {KeyCode::kInsert, "Insert"},
    {KeyCode::kDelete, "Delete"},
    {KeyCode::kHome, "Home"},
    {KeyCode::kBegin, "Begin"},
    {KeyCode::kEnd, "End"},
    {KeyCode::kPageUp, "Page Up"},
    {KeyCode::kPageDown, "Page Dn"},
    {KeyCode::kPrintScreen, "PrtScrn"},
    {KeyCode::kScrollLock, "ScrollLock"},
    {KeyCode::kPause, "Pause"},
    {KeyCode::kSysReq, "SysReq"},
    {KeyCode::kBreak, "Break"},
    {KeyCode::kReset, "Reset"},
    {KeyCode::kStop, "Stop"},
    {KeyCode::kMenu, "Menu"},
    {KeyCode::kUserFn, "UserFn"},
    {KeyCode::kSystem, "System"},
    {KeyCode::kPrintFn, "PrintFn"},
    {KeyCode::kClearNumLock, "Clear/NumLk"},
    {KeyCode::kClear, "Clear"},
    {KeyCode::kInsertLine, "Ins Line"},
    {KeyCode::kDeleteLine, "Del Line"},
    {KeyCode::kInsertChar, "Ins Char"},
    {KeyCode::kDeleteChar, "Del Char"},
    {KeyCode::kPreviousFn, "Prev Fn"},
    {KeyCode::kHelp, "Help"},
    {0, nullptr},
};

} // namespace

MenuKeyboard::MenuKeyboard() : Menu(0, 0, 6, "Helvetica", 20)
{
    for (int const item : {kThrustUp, kThrustDown, kPause, kInvert})
    {
        SetStringForItem(item);
    }
    SetLocalizedItem(*this, kBack, "Back to Options");
}

// After a click on one key's line and then on another's, the first keeps its "[Type a key]": a text is
// rewritten only when its own item changes.
bool MenuKeyboard::MouseUp(int item)
{
    switch (item)
    {
    case kThrustUp:
    case kThrustDown:
    case kPause:
        m_capture = item;
        break;
    case kInvert:
        GameSettings::SetIntParam(setting::kMouseInvert,
                                  GameSettings::GetIntParam(setting::kMouseInvert) == 0 ? 1 : 0);
        break;
    case kBack:
        SetCurrent(new MenuOptions);
        return true;
    default:
        return false;
    }
    SetStringForItem(item);
    return true;
}

bool MenuKeyboard::KeyDown(unsigned short ch)
{
    if (m_capture >= 0)
    {
        int const item = m_capture;
        m_capture = -1;
        GameSettings::SetUniCharParam(kKeySettings[item], ch);
        SetStringForItem(item);
    }
    return true;
}

void MenuKeyboard::SetStringForItem(int item)
{
    constexpr char const* kLabels[] = {
        // Translators: a label before a key's name or "[Type a key]"; keep the blank at its end.
        MarkForCatalogue("Increase Throttle Key: "),
        MarkForCatalogue("Decrease Throttle Key: "),
        MarkForCatalogue("Pause Game key: "),
        // Translators: a label before YES or NO; keep the two blanks at its end.
        MarkForCatalogue("Invert Mouse Up/Down:  "),
    };
    std::string text = localizedString(kLabels[item]);
    if (item == kInvert)
    {
        bool const inverted = GameSettings::GetIntParam(setting::kMouseInvert) != 0;
        text += localizedString(inverted ? MarkForCatalogue("YES") : MarkForCatalogue("NO"));
    }
    else if (m_capture != -1)
    {
        // Translators: stands in place of a key's name while the game waits for the player to press one.
        text += localizedString("[Type a key]");
    }
    else
    {
        text += KeyName(GameSettings::GetUniCharParam(kKeySettings[item]));
    }
    SetItem(item, text.c_str());
}

std::string MenuKeyboard::KeyName(unsigned short ch)
{
    for (NamedKey const* key = kKeyNames; key->code != 0; ++key)
    {
        if (key->code == ch)
        {
            return key->name;
        }
    }
    return platform::Utf8FromUtf16(std::u16string(1, static_cast<char16_t>(ch)));
}
