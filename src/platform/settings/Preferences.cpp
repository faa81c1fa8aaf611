// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/Preferences.h"

#include "platform/base/Log.h"
#include "platform/settings/SettingsFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <exception>
#include <limits>
#include <set>

namespace platform
{

namespace
{

constexpr char const* kGroup = "Settings";

int IntegerWithin(double value)
{
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, kLeast, kMost));
}

float FloatWithin(double value)
{
    constexpr double kMost = std::numeric_limits<float>::max();
    return static_cast<float>(std::isfinite(value) ? std::clamp(value, -kMost, kMost) : value);
}

std::string ReadString(GKeyFile* file, char const* group, char const* key, GError** problem)
{
    g_autofree char* text = g_key_file_get_string(file, group, key, problem);
    return text != nullptr ? text : "";
}

std::vector<int> ReadIntegers(GKeyFile* file, char const* group, char const* key, GError** problem)
{
    gsize count = 0;
    g_auto(GStrv) texts = g_key_file_get_string_list(file, group, key, &count, problem);
    std::vector<int> values(count);
    std::transform(texts, texts + count, values.begin(),
                   [](char const* text) { return IntegerWithin(g_ascii_strtod(text, nullptr)); });
    return values;
}

// Stores a value of any type under the key.
struct Store
{
    GKeyFile* file;
    std::string const& key;

    void operator()(int value) const { g_key_file_set_integer(file, kGroup, key.c_str(), value); }

    // The shortest decimal that reads back as the same float.
    void operator()(float value) const
    {
        std::array<char, 64> text{};
        std::to_chars(text.data(), text.data() + text.size() - 1, value);
        g_key_file_set_value(file, kGroup, key.c_str(), text.data());
    }

    void operator()(std::string const& value) const
    {
        g_autofree char* text = g_utf8_make_valid(value.c_str(), -1);
        g_key_file_set_string(file, kGroup, key.c_str(), text);
    }

    void operator()(std::vector<int> const& values) const
    {
        std::string text;
        for (int const value : values)
        {
            text += std::to_string(value) + ";";
        }
        g_key_file_set_value(file, kGroup, key.c_str(), text.c_str());
    }
};

} // namespace

struct Preferences::Storage
{
    std::filesystem::path file;
    KeyFile values; // the user's, changes included
    KeyFile defaults{g_key_file_new()};
    std::map<std::string, Merge> merges;
    std::map<std::string, std::vector<int>> readBefore; // of changed keys with a merge
    std::set<std::string> changed;                      // keys not yet written
    std::set<std::string> reported;                     // keys whose value has the wrong type
    bool isRefused = false; // the last try to read or write the file failed; it was reported

    template <typename Result>
    Result read(std::string const& key, Result (*get)(GKeyFile*, char const*, char const*, GError**));
    void mergeWith(GKeyFile* latest);
    bool save();
};

// The user's value or the default; 0 or empty without either.
template <typename Result>
Result Preferences::Storage::read(std::string const& key,
                                  Result (*get)(GKeyFile*, char const*, char const*, GError**))
{
    if (g_key_file_has_key(values.get(), kGroup, key.c_str(), nullptr) != 0)
    {
        g_autoptr(GError) problem = nullptr;
        Result result = get(values.get(), kGroup, key.c_str(), &problem);
        if (problem == nullptr)
        {
            return result;
        }
        if (reported.insert(key).second)
        {
            Log("The setting " + key + " in " + file.string() + " has the wrong type; its default is used");
        }
    }
    return get(defaults.get(), kGroup, key.c_str(), nullptr);
}

// What is merged counts as read: should the save fail, the next try adds nothing twice.
void Preferences::Storage::mergeWith(GKeyFile* latest)
{
    for (auto& [key, before] : readBefore)
    {
        bool const isThere = g_key_file_has_key(latest, kGroup, key.c_str(), nullptr) != 0;
        std::vector<int> theirs = ReadIntegers(latest, kGroup, key.c_str(), nullptr);
        if (isThere && theirs != before)
        {
            Value const merged = merges.at(key)(before, read(key, ReadIntegers), theirs);
            std::visit(Store{values.get(), key}, merged);
            before = std::move(theirs);
        }
    }
}

// Our changes go over what the file holds by now: another running game may have changed it.
bool Preferences::Storage::save()
{
    FolderLock const lock(file.parent_path());
    KeyFile latest = LoadSettings(file, !isRefused);
    if (latest != nullptr)
    {
        mergeWith(latest.get());
        for (std::string const& key : changed)
        {
            g_autofree char* value = g_key_file_get_value(values.get(), kGroup, key.c_str(), nullptr);
            g_key_file_set_value(latest.get(), kGroup, key.c_str(), value);
        }
    }
    isRefused = latest == nullptr || !SaveSettings(file, latest.get(), !isRefused);
    if (!isRefused)
    {
        values = std::move(latest);
        changed.clear();
        readBefore.clear();
    }
    return !isRefused;
}

Preferences& Preferences::standard()
{
    static Preferences preferences(std::filesystem::path(g_get_user_config_dir()) / "quarrow" /
                                   "settings.ini");
    return preferences;
}

Preferences::Preferences(std::filesystem::path file) : m_storage(std::make_unique<Storage>())
{
    m_storage->file = std::move(file);
    KeyFile stored = LoadSettings(m_storage->file, true);
    m_storage->isRefused = stored == nullptr;
    m_storage->values = stored != nullptr ? std::move(stored) : KeyFile(g_key_file_new());
}

Preferences::~Preferences()
{
    try
    {
        synchronize();
    }
    catch (std::exception const& problem)
    {
        LogFormat("The settings cannot be saved: %s", problem.what());
    }
}

void Preferences::registerDefaults(Defaults const& defaults)
{
    for (auto const& [key, value] : defaults)
    {
        std::visit(Store{m_storage->defaults.get(), key}, value);
    }
}

void Preferences::registerMerge(std::string const& key, Merge merge)
{
    m_storage->merges.insert_or_assign(key, std::move(merge));
}

int Preferences::integerForKey(std::string const& key) const
{
    return IntegerWithin(m_storage->read(key, g_key_file_get_double));
}

float Preferences::floatForKey(std::string const& key) const
{
    return FloatWithin(m_storage->read(key, g_key_file_get_double));
}

std::string Preferences::stringForKey(std::string const& key) const
{
    return m_storage->read(key, ReadString);
}

std::vector<int> Preferences::integerArrayForKey(std::string const& key) const
{
    return m_storage->read(key, ReadIntegers);
}

void Preferences::setValue(std::string const& key, Value const& value)
{
    if (m_storage->merges.contains(key) && !m_storage->changed.contains(key))
    {
        m_storage->readBefore[key] = integerArrayForKey(key);
    }
    std::visit(Store{m_storage->values.get(), key}, value);
    m_storage->changed.insert(key);
}

bool Preferences::synchronize()
{
    return m_storage->changed.empty() || m_storage->save();
}

} // namespace platform
