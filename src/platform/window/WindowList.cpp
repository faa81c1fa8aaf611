// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/WindowList.h"

#include "platform/window/Window.h"

#include <algorithm>
#include <vector>

namespace platform::WindowList
{

namespace
{

std::vector<Window*>& Windows()
{
    static std::vector<Window*> windows; // the key window is the last
    return windows;
}

} // namespace

void add(Window* window)
{
    Windows().insert(Windows().begin(), window);
}

void remove(Window* window)
{
    std::erase(Windows(), window);
}

Window* withIdentifier(unsigned identifier)
{
    auto const& windows = Windows();
    auto const found = std::find_if(windows.begin(), windows.end(),
                                    [identifier](Window const* w) { return w->identifier() == identifier; });
    return found != windows.end() ? *found : nullptr;
}

Window* key()
{
    return Windows().empty() ? nullptr : Windows().back();
}

void setKey(Window* window)
{
    remove(window);
    Windows().push_back(window);
}

} // namespace platform::WindowList
