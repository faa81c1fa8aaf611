// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The colour of a glowing body, for the stars.
#pragma once

#include "common/Vector.h"

namespace maker
{

// Linear red, green and blue of a body at a temperature in kelvin (1700 to 25000), the largest of them 1.
Vector BlackbodyColour(double kelvin);

} // namespace maker
