// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The per-user preferences: the group [Settings] of a key file in the user's configuration folder, over a
// layer of registered defaults that is never written to it.
//
// Every read asks the user's values first, then the defaults. A user's value that cannot be read as what is
// asked for counts as absent; it is reported once and stays in the file. An int is a number truncated
// towards zero and clamped to the range of an int (NaN: 0). What is in neither layer, or a default of another
// type, reads as 0 or empty.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace platform
{

class Preferences
{
public:
    using Value = std::variant<int, float, std::string, std::vector<int>>;
    using Defaults = std::map<std::string, Value>;

    // Merges an array that another running game has changed as well. before: as it was read here; ours: as it
    // was set here; theirs: as the file holds it now.
    using Merge = std::function<std::vector<int>(std::vector<int> const& before, std::vector<int> const& ours,
                                                 std::vector<int> const& theirs)>;

    // The user's own preferences, read from the file at the first call.
    static Preferences& standard();

    // Preferences kept in the given file. It need not exist. One that cannot be read or parsed is renamed to
    // "<name>.broken-<date>" with one log line.
    explicit Preferences(std::filesystem::path file);
    ~Preferences(); // saves what was changed
    Preferences(Preferences const&) = delete;
    Preferences& operator=(Preferences const&) = delete;

    void registerDefaults(Defaults const& defaults);

    // Without one, the array that was set here replaces the other game's.
    void registerMerge(std::string const& key, Merge merge);

    int integerForKey(std::string const& key) const;
    float floatForKey(std::string const& key) const;
    std::string stringForKey(std::string const& key) const; // UTF-8
    // An element that is no number reads as 0.
    std::vector<int> integerArrayForKey(std::string const& key) const;
    void setValue(std::string const& key, Value const& value);

    // Writes the changed keys now, over what the file holds by then, and takes the other keys from there.
    // False, one log line, and everything kept for the next try, when the disk refuses. Nothing to write is
    // true.
    bool synchronize();

private:
    struct Storage;
    std::unique_ptr<Storage> m_storage;
};

} // namespace platform
