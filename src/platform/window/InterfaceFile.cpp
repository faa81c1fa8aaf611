// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/InterfaceFile.h"

#include "platform/base/KeyFile.h"
#include "platform/base/Log.h"

namespace platform
{

namespace
{

constexpr char const* kWindow = "Window";

float Pixels(GKeyFile* file, char const* key)
{
    return static_cast<float>(g_key_file_get_integer(file, kWindow, key, nullptr));
}

// From "Ctrl+Q", "Alt+Return", "F11".
KeyEquivalent ParseKeyEquivalent(std::string const& text)
{
    std::size_t const nameStart = text.rfind('+') + 1; // 0 where there is no '+'
    std::string const modifiers = text.substr(0, nameStart);
    auto const holds = [&modifiers](char const* name) { return modifiers.find(name) != std::string::npos; };
    return {holds("Ctrl"), holds("Alt"), holds("Shift"), text.substr(nameStart)};
}

Command ReadCommand(GKeyFile* file, char const* action)
{
    Command command{action, {}};
    gsize count = 0;
    g_auto(GStrv) keys = g_key_file_get_string_list(file, "Commands", action, &count, nullptr);
    for (gsize i = 0; i < count; ++i)
    {
        command.keys.push_back(ParseKeyEquivalent(keys[i]));
    }
    return command;
}

} // namespace

std::optional<InterfaceFile> InterfaceFile::load(std::filesystem::path const& path)
{
    KeyFile const file(g_key_file_new());
    g_autoptr(GError) problem = nullptr;
    if (g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_NONE, &problem) == 0)
    {
        Log("The interface file " + path.string() + " cannot be used: " + problem->message);
        return std::nullopt;
    }
    InterfaceFile interface;
    g_autofree char* title = g_key_file_get_string(file.get(), kWindow, "title", nullptr);
    interface.windowTitle = title != nullptr ? title : "";
    interface.contentSize = {Pixels(file.get(), "width"), Pixels(file.get(), "height")};
    for (char const* const action : {"toggleFullScreen", "terminate"})
    {
        interface.commands.push_back(ReadCommand(file.get(), action));
    }
    return interface;
}

} // namespace platform
