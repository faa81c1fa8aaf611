// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/Preferences.h"

#include "platform/base/Log.h"
#include "platform/base/UserFolders.h"
#include "platform/settings/AtomicFile.h"
#include "platform/settings/SettingsFile.h"

#include <toml++/toml.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace platform
{

namespace
{

enum class Kind
{
    Number,
    String,
    Array,
    Other,
};

Kind KindOf(toml::node const& node)
{
    if (node.is_number())
    {
        return Kind::Number;
    }
    if (node.is_string())
    {
        return Kind::String;
    }
    return node.is_array() ? Kind::Array : Kind::Other;
}

Kind KindOf(Preferences::Value const& value)
{
    if (std::holds_alternative<std::string>(value))
    {
        return Kind::String;
    }
    return std::holds_alternative<std::vector<int>>(value) ? Kind::Array : Kind::Number;
}

int IntegerWithin(double value)
{
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, kLeast, kMost));
}

// Numbers are read by way of double, which holds every int and every float.
double NumberOf(toml::node const& node)
{
    if (auto const* const integer = node.as_integer())
    {
        return static_cast<double>(integer->get());
    }
    auto const* const real = node.as_floating_point();
    return real != nullptr ? real->get() : 0.0;
}

double NumberOf(Preferences::Value const& value)
{
    if (auto const* const integer = std::get_if<int>(&value))
    {
        return *integer;
    }
    auto const* const real = std::get_if<float>(&value);
    return real != nullptr ? static_cast<double>(*real) : 0.0;
}

float FloatWithin(double value)
{
    constexpr double kMost = std::numeric_limits<float>::max();
    return std::isfinite(value) ? static_cast<float>(std::clamp(value, -kMost, kMost))
                                : static_cast<float>(value);
}

std::vector<int> IntegersOf(toml::node const& node)
{
    std::vector<int> values;
    if (auto const* const array = node.as_array())
    {
        for (toml::node const& element : *array)
        {
            values.push_back(IntegerWithin(NumberOf(element)));
        }
    }
    return values;
}

} // namespace

struct Preferences::Storage
{
    std::filesystem::path file;
    toml::table values; // the user's, changes included
    Defaults defaults;
    std::map<std::string, Merge> merges;
    std::map<std::string, std::vector<int>> before; // of a changed key with a merge, as it was read
    std::set<std::string> changed;                  // keys not yet written
    std::set<std::string> reported;                 // keys whose kind was complained about
    bool refusalReported = false;

    toml::node const* userValue(std::string const& key);
    Value const* defaultValue(std::string const& key) const;
    std::vector<int> integers(std::string const& key);
    void mergeWith(toml::table const& table);
    bool save();
};

// A value of another kind than its default counts as absent.
toml::node const* Preferences::Storage::userValue(std::string const& key)
{
    toml::node const* const node = values.get(key);
    Value const* const standard = defaultValue(key);
    if (node == nullptr || standard == nullptr || KindOf(*node) == KindOf(*standard))
    {
        return node;
    }
    if (reported.insert(key).second)
    {
        Log("The setting " + key + " in " + file.string() + " has the wrong type; its default is used");
    }
    return nullptr;
}

Preferences::Value const* Preferences::Storage::defaultValue(std::string const& key) const
{
    auto const found = defaults.find(key);
    return found != defaults.end() ? &found->second : nullptr;
}

std::vector<int> Preferences::Storage::integers(std::string const& key)
{
    if (toml::node const* const node = userValue(key))
    {
        return IntegersOf(*node);
    }
    Value const* const value = defaultValue(key);
    auto const* const array = value != nullptr ? std::get_if<std::vector<int>>(value) : nullptr;
    return array != nullptr ? *array : std::vector<int>();
}

// What is merged counts as read: should the save fail, the next try adds nothing twice.
void Preferences::Storage::mergeWith(toml::table const& table)
{
    for (auto& [key, read] : before)
    {
        toml::node const* const node = table.get(key);
        std::vector<int> theirs = node != nullptr ? IntegersOf(*node) : std::vector<int>();
        if (node != nullptr && theirs != read)
        {
            StoreValue(values, key, merges.at(key)(read, integers(key), theirs));
            read = std::move(theirs);
        }
    }
}

// Our changes go over what the file holds by now: another running game may have changed it.
bool Preferences::Storage::save()
{
    FolderLock const lock(file.parent_path());
    auto table = LoadSettings(file, !refusalReported);
    if (!table)
    {
        refusalReported = true;
        return false;
    }
    mergeWith(*table);
    for (std::string const& key : changed)
    {
        table->insert_or_assign(key, *values.get(key));
    }
    std::string const problem = SaveSettings(file, *table);
    if (!problem.empty() && !refusalReported)
    {
        Log("The settings cannot be saved to " + file.string() + ": " + problem);
    }
    refusalReported = !problem.empty();
    if (!problem.empty())
    {
        return false;
    }
    for (auto const& [key, node] : *table)
    {
        values.insert_or_assign(key, node);
    }
    changed.clear();
    before.clear();
    return true;
}

Preferences& Preferences::standard()
{
    static Preferences preferences(ConfigurationFolder() / "settings.toml");
    return preferences;
}

Preferences::Preferences(std::filesystem::path file) : m_storage(std::make_unique<Storage>())
{
    m_storage->file = std::move(file);
    auto table = LoadSettings(m_storage->file, true);
    m_storage->refusalReported = !table;
    m_storage->values = std::move(table).value_or(toml::table{});
}

Preferences::~Preferences()
{
    synchronize();
}

void Preferences::registerDefaults(Defaults const& defaults)
{
    for (auto const& [key, value] : defaults)
    {
        m_storage->defaults.insert_or_assign(key, value);
    }
}

void Preferences::registerMerge(std::string const& key, Merge merge)
{
    m_storage->merges.insert_or_assign(key, std::move(merge));
}

int Preferences::integerForKey(std::string const& key) const
{
    if (toml::node const* const node = m_storage->userValue(key))
    {
        return IntegerWithin(NumberOf(*node));
    }
    Value const* const value = m_storage->defaultValue(key);
    return value != nullptr ? IntegerWithin(NumberOf(*value)) : 0;
}

float Preferences::floatForKey(std::string const& key) const
{
    if (toml::node const* const node = m_storage->userValue(key))
    {
        return FloatWithin(NumberOf(*node));
    }
    Value const* const value = m_storage->defaultValue(key);
    return value != nullptr ? FloatWithin(NumberOf(*value)) : 0.0F;
}

std::string Preferences::stringForKey(std::string const& key) const
{
    if (toml::node const* const node = m_storage->userValue(key))
    {
        auto const* const text = node->as_string();
        return text != nullptr ? text->get() : std::string();
    }
    Value const* const value = m_storage->defaultValue(key);
    auto const* const text = value != nullptr ? std::get_if<std::string>(value) : nullptr;
    return text != nullptr ? *text : std::string();
}

std::vector<int> Preferences::integerArrayForKey(std::string const& key) const
{
    return m_storage->integers(key);
}

void Preferences::setValue(std::string const& key, Value const& value)
{
    if (m_storage->merges.contains(key) && !m_storage->changed.contains(key))
    {
        m_storage->before[key] = m_storage->integers(key);
    }
    StoreValue(m_storage->values, key, value);
    m_storage->changed.insert(key);
}

bool Preferences::synchronize()
{
    return m_storage->changed.empty() || m_storage->save();
}

bool Preferences::hasUnsavedChanges() const
{
    return !m_storage->changed.empty();
}

} // namespace platform
