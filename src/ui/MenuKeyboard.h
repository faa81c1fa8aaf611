// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The page of control keys and the mouse's inversion. A click on a key's line waits for the next key and
// binds it.
#pragma once

#include "ui/Menu.h"

#include <string>

class MenuKeyboard : public Menu
{
public:
    MenuKeyboard();
    bool MouseUp(int item) override;
    bool KeyDown(unsigned short ch) override;
    bool WaitsForKey() const override { return m_capture >= 0; }

    // How a key is shown: its name, or the character itself for a key without one. UTF-8.
    static std::string KeyName(unsigned short ch);

private:
    void SetStringForItem(int item);

    int m_capture = -1; // the key item that waits for a key, or -1
};
