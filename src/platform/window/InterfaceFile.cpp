// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/InterfaceFile.h"

#include "platform/base/File.h"
#include "platform/base/Log.h"

#include <SDL.h>
#include <toml++/toml.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace platform
{

namespace
{

constexpr std::size_t kLargestFile = std::size_t{1} << 20U;

// What is wrong with the file; never leaves this source file.
class Unusable : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

template <typename Type>
Type Required(toml::table const& table, std::string const& key)
{
    auto const value = table[key].value<Type>();
    if (!value)
    {
        throw Unusable("'" + key + "' is missing or has the wrong type");
    }
    return *value;
}

float PositivePixels(toml::table const& table, std::string const& key)
{
    constexpr std::int64_t kMost = 16384;
    auto const pixels = Required<std::int64_t>(table, key);
    if (pixels < 1 || pixels > kMost)
    {
        throw Unusable("'" + key + "' is not a size in pixels");
    }
    return static_cast<float>(pixels);
}

Command ReadCommand(toml::table const& table)
{
    Command command;
    command.action = Required<std::string>(table, "action");
    if (command.action != "toggleFullScreen" && command.action != "terminate")
    {
        throw Unusable("there is no action '" + command.action + "'");
    }
    toml::array const* const keys = table["keys"].as_array();
    if (keys == nullptr)
    {
        throw Unusable("'keys' is missing or no array");
    }
    for (toml::node const& node : *keys)
    {
        auto const text = node.value<std::string>();
        auto const key = text ? ParseKeyEquivalent(*text) : std::nullopt;
        if (!key)
        {
            throw Unusable("'" + text.value_or("") + "' is no key");
        }
        command.keys.push_back(*key);
    }
    return command;
}

InterfaceFile ReadInterface(toml::table const& root)
{
    toml::table const* const window = root["window"].as_table();
    if (window == nullptr)
    {
        throw Unusable("there is no window in it");
    }
    InterfaceFile interface;
    interface.windowTitle = Required<std::string>(*window, "title");
    interface.contentSize = {PositivePixels(*window, "width"), PositivePixels(*window, "height")};
    interface.viewClass = Required<std::string>(*window, "view");
    if (toml::array const* const commands = root["command"].as_array())
    {
        for (toml::node const& node : *commands)
        {
            toml::table const* const table = node.as_table();
            if (table == nullptr)
            {
                throw Unusable("a command is no table");
            }
            interface.commands.push_back(ReadCommand(*table));
        }
    }
    return interface;
}

bool TakePrefix(std::string_view& text, std::string_view prefix)
{
    bool const found = text.size() > prefix.size() && text.starts_with(prefix);
    text.remove_prefix(found ? prefix.size() : 0);
    return found;
}

bool IsAlphanumeric(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsKeyName(std::string const& text)
{
    return std::ranges::all_of(text, IsAlphanumeric) && SDL_GetKeyFromName(text.c_str()) != SDLK_UNKNOWN;
}

} // namespace

std::optional<InterfaceFile> InterfaceFile::load(std::filesystem::path const& path)
{
    auto const bytes = ReadWholeFile(path, kLargestFile);
    if (!bytes)
    {
        Log("The interface file " + path.string() + " cannot be read");
        return std::nullopt;
    }
    try
    {
        return ReadInterface(
            toml::parse(std::string_view(reinterpret_cast<char const*>(bytes->data()), bytes->size())));
    }
    catch (toml::parse_error const& problem)
    {
        Log("The interface file " + path.string() + " cannot be used: " + std::string(problem.description()));
    }
    catch (Unusable const& problem)
    {
        Log("The interface file " + path.string() + " cannot be used: " + problem.what());
    }
    return std::nullopt;
}

std::optional<KeyEquivalent> ParseKeyEquivalent(std::string const& text)
{
    KeyEquivalent key;
    std::string_view rest = text;
    bool found = true;
    while (found)
    {
        bool const control = TakePrefix(rest, "Ctrl+");
        bool const alt = TakePrefix(rest, "Alt+");
        bool const shift = TakePrefix(rest, "Shift+");
        key.control = key.control || control;
        key.alt = key.alt || alt;
        key.shift = key.shift || shift;
        found = control || alt || shift;
    }
    key.key = rest;
    return IsKeyName(key.key) ? std::optional(key) : std::nullopt;
}

} // namespace platform
