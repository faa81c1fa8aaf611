// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "settings/RaceTimes.h"

#include <algorithm>
#include <iterator>

namespace
{

// The times of a table without its empty places.
std::vector<int> Sorted(std::vector<int> times)
{
    std::erase(times, 0);
    std::ranges::sort(times);
    return times;
}

// What is in one and not in the other, each as often as it is missing there.
std::vector<int> Without(std::vector<int> const& times, std::vector<int> const& others)
{
    std::vector<int> rest;
    std::ranges::set_difference(times, others, std::back_inserter(rest));
    return rest;
}

} // namespace

std::vector<int> MergedRaceTimes(std::vector<int> const& before, std::vector<int> const& ours,
                                 std::vector<int> const& theirs)
{
    std::vector<int> const read = Sorted(before);
    std::vector<int> const set = Sorted(ours);
    std::vector<int> const kept = Without(Sorted(theirs), Without(read, set));
    std::vector<int> merged;
    std::ranges::merge(kept, Without(set, read), std::back_inserter(merged));
    merged.resize(ours.size(), 0);
    return merged;
}
