// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The 16-bit characters that stand for keys without a printable one: control characters, and for function and
// cursor keys a private-use range that starts at 0xF700.
#pragma once

namespace platform::KeyCode
{

constexpr char16_t kEnter = 0x0003; // on the keypad
constexpr char16_t kTab = 0x0009;
constexpr char16_t kReturn = 0x000D;
constexpr char16_t kEscape = 0x001B;
constexpr char16_t kSpace = 0x0020;
constexpr char16_t kBackspace = 0x007F;

constexpr char16_t kUpArrow = 0xF700;
constexpr char16_t kDownArrow = 0xF701;
constexpr char16_t kLeftArrow = 0xF702;
constexpr char16_t kRightArrow = 0xF703;
constexpr char16_t kF1 = 0xF704; // F2 and so on follow
constexpr char16_t kInsert = 0xF727;
constexpr char16_t kDelete = 0xF728;
constexpr char16_t kHome = 0xF729;
constexpr char16_t kBegin = 0xF72A;
constexpr char16_t kEnd = 0xF72B;
constexpr char16_t kPageUp = 0xF72C;
constexpr char16_t kPageDown = 0xF72D;
constexpr char16_t kPrintScreen = 0xF72E;
constexpr char16_t kScrollLock = 0xF72F;
constexpr char16_t kPause = 0xF730;
constexpr char16_t kSysReq = 0xF731;
constexpr char16_t kBreak = 0xF732;
constexpr char16_t kReset = 0xF733;
constexpr char16_t kStop = 0xF734;
constexpr char16_t kMenu = 0xF735;
constexpr char16_t kUserFn = 0xF736;
constexpr char16_t kSystem = 0xF737;
constexpr char16_t kPrintFn = 0xF738;
constexpr char16_t kClearNumLock = 0xF739;
constexpr char16_t kClear = 0xF73A;
constexpr char16_t kInsertLine = 0xF73B;
constexpr char16_t kDeleteLine = 0xF73C;
constexpr char16_t kInsertChar = 0xF73D;
constexpr char16_t kDeleteChar = 0xF73E;
constexpr char16_t kPreviousFn = 0xF73F;
constexpr char16_t kHelp = 0xF746;

} // namespace platform::KeyCode
