// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Reads a file whole.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

namespace platform
{

// Nothing for what is no regular file, cannot be read, or is larger than the limit (bytes).
std::optional<std::vector<std::byte>> ReadWholeFile(std::filesystem::path const& file,
                                                    std::size_t limit = std::size_t{64} << 20U);

} // namespace platform
