// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The spectrum of a square picture, to look for patterns that repeat inside it.
#pragma once

#include "images/Picture.h"

// Of all waves in the picture with at least fewest periods across it: how far the strongest stands above the
// mean of the waves of about its own length. Noise of any colour stays below about 20 for a million waves.
double StrongestWaveOverMean(maker::Picture const& picture, int fewest);
