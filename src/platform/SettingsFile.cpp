// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/SettingsFile.h"

#include "platform/AtomicFile.h"
#include "platform/File.h"
#include "platform/Log.h"
#include "platform/Unicode.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <ctime>
#include <sstream>
#include <string_view>

namespace platform
{

namespace
{

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = std::size_t{1} << 20U;

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

// Texts in one pair of quotes with what is odd escaped: toml++ 3.3 prints a text of several lines so that its
// first line break, or three quotes in it, are not read back.
std::string Printed(toml::table const& table)
{
    constexpr auto kFlags =
        toml::toml_formatter::default_flags &
        ~(toml::format_flags::allow_multi_line_strings | toml::format_flags::allow_literal_strings);
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << toml::toml_formatter(table, kFlags);
    return text.str();
}

// toml++ prints seventeen digits; the shortest that read back are enough.
std::string ShortestText(double value)
{
    if (!std::isfinite(value))
    {
        return std::isnan(value) ? "nan" : (value < 0.0 ? "-inf" : "inf");
    }
    std::array<char, 64> digits{};
    auto const written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    std::string text(digits.data(), written.ptr);
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

std::string LineOf(std::string const& key, toml::node const& node)
{
    auto const* const real = node.as_floating_point();
    if (real == nullptr)
    {
        return Printed(toml::table{{key, node}}) + '\n';
    }
    std::string line = Printed(toml::table{{key, 0}}); // "key = 0", the key in quotes where it needs them
    line.pop_back();
    return line + ShortestText(real->get()) + '\n';
}

// Plain values first, one a line; then what has lines of its own.
std::string TextOf(toml::table const& table)
{
    std::string text;
    toml::table sections;
    for (auto const& [key, node] : table)
    {
        if (node.is_table() || node.is_array_of_tables())
        {
            sections.insert(key, node);
        }
        else
        {
            text += LineOf(std::string(key.str()), node);
        }
    }
    return sections.empty() ? text : text + '\n' + Printed(sections) + '\n';
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
    try
    {
        return toml::parse(std::string_view(reinterpret_cast<char const*>(bytes->data()), bytes->size()));
    }
    catch (toml::parse_error const& problem)
    {
        return SetAside(file, problem.description(), tellIfStuck);
    }
}

std::string SaveSettings(fs::path const& file, toml::table const& table)
{
    return ReplaceFile(file, TextOf(table));
}

void StoreValue(toml::table& table, std::string const& key, Preferences::Value const& value)
{
    std::visit(Store{table, key}, value);
}

} // namespace platform
