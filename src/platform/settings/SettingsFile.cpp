// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/SettingsFile.h"

#include "platform/base/File.h"
#include "platform/base/Log.h"
#include "platform/base/Unicode.h"
#include "platform/settings/AtomicFile.h"
#include "platform/settings/TomlText.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <ctime>
#include <string_view>

namespace platform
{

namespace
{

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = std::size_t{1} << 20U;

// toml++ goes down nested tables by recursion: tens of thousands overflow the stack.
constexpr int kDeepestNesting = 1024;

std::string DateSuffix()
{
    std::time_t const now = std::time(nullptr);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d-%H%M%S", std::localtime(&now));
    return text.data();
}

fs::path FreeNameBeside(fs::path const& file)
{
    std::string const base = file.string() + ".broken-" + DateSuffix();
    fs::path name = base;
    std::error_code error;
    for (int i = 2; fs::exists(name, error) && i < 1000; ++i)
    {
        name = base + "-" + std::to_string(i);
    }
    return name;
}

// Each dot of a dotted key nests a table. The first of a line is let pass, most often a number's: lines nest
// only by way of arrays and inline tables, which toml++ limits.
bool MayNestTooDeeply(std::string_view text)
{
    int dots = 0;
    bool isFirst = true;
    for (char const c : text)
    {
        if (c == '\n')
        {
            isFirst = true;
        }
        else if (c == '.')
        {
            dots += isFirst ? 0 : 1;
            isFirst = false;
        }
    }
    return dots > kDeepestNesting;
}

// An empty table, or nothing when the file cannot be moved.
std::optional<toml::table> SetAside(fs::path const& file, std::string_view reason, bool tellIfStuck)
{
    fs::path const aside = FreeNameBeside(file);
    std::error_code error;
    fs::rename(file, aside, error);
    std::string const told =
        "The settings in " + file.string() + " cannot be used (" + std::string(reason) + "); ";
    if (!error)
    {
        Log(told + "they are kept as " + aside.filename().string() + ", and defaults are used");
        return toml::table{};
    }
    if (tellIfStuck)
    {
        Log(told + "they stay as they are, defaults are used and nothing is saved");
    }
    return std::nullopt;
}

// The double whose shortest decimal is that of the float.
double ShortestDecimal(float value)
{
    if (!std::isfinite(value))
    {
        return value;
    }
    std::array<char, 64> text{};
    auto const written = std::to_chars(text.data(), text.data() + text.size(), value);
    double result = value;
    std::from_chars(text.data(), written.ptr, result);
    return result;
}

struct Store
{
    toml::table& table;
    std::string const& key;

    void operator()(int value) const { table.insert_or_assign(key, static_cast<std::int64_t>(value)); }
    void operator()(float value) const { table.insert_or_assign(key, ShortestDecimal(value)); }
    void operator()(std::string const& value) const
    {
        // Ill-formed text would make the whole file unreadable.
        table.insert_or_assign(key, Utf8FromUtf16(Utf16FromUtf8(value)));
    }
    void operator()(std::vector<int> const& values) const
    {
        toml::array array;
        for (int const value : values)
        {
            array.push_back(static_cast<std::int64_t>(value));
        }
        table.insert_or_assign(key, std::move(array));
    }
};

} // namespace

std::optional<toml::table> LoadSettings(fs::path const& file, bool tellIfStuck)
{
    std::error_code error;
    if (fs::status(file, error).type() == fs::file_type::not_found)
    {
        return toml::table{};
    }
    auto const bytes = ReadWholeFile(file, kLargestFile);
    if (!bytes)
    {
        return SetAside(file, "they cannot be read", tellIfStuck);
    }
    std::string_view const text(reinterpret_cast<char const*>(bytes->data()), bytes->size());
    if (MayNestTooDeeply(text))
    {
        return SetAside(file, "they are nested too deeply", tellIfStuck);
    }
    try
    {
        return toml::parse(text);
    }
    catch (toml::parse_error const& problem)
    {
        return SetAside(file, problem.description(), tellIfStuck);
    }
}

std::string SaveSettings(fs::path const& file, toml::table const& table)
{
    return ReplaceFile(file, TomlText(table));
}

void StoreValue(toml::table& table, std::string const& key, Preferences::Value const& value)
{
    std::visit(Store{table, key}, value);
}

} // namespace platform
