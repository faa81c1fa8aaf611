// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The windows that exist, in the order in which they were given the keyboard. Window enters and leaves
// itself; Application asks it where an event belongs.
#pragma once

namespace platform
{

class Window;

namespace WindowList
{

void add(Window* window);
void remove(Window* window);

Window* withIdentifier(unsigned identifier); // null when there is none
Window* key(); // the one that was given the keyboard last; null when there is none
void setKey(Window* window);

} // namespace WindowList

} // namespace platform
