// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The table of best race times where two running games have changed it.
#pragma once

#include <vector>

// Whole seconds, fastest first, 0 for an empty place. before: as this game read it; ours: as it set it;
// theirs: as another game has stored it meanwhile. The result has as many places as
// ours: it holds the fastest of the times that either added or both kept, and none that either cleared.
std::vector<int> MergedRaceTimes(std::vector<int> const& before, std::vector<int> const& ours,
                                 std::vector<int> const& theirs);
