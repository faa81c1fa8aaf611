// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/File.h"

#include <fstream>

namespace platform
{

std::optional<std::vector<std::byte>> ReadWholeFile(std::filesystem::path const& file, std::size_t limit)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
    {
        return std::nullopt;
    }
    auto const size = std::filesystem::file_size(file, error);
    if (error || size > limit)
    {
        return std::nullopt;
    }
    std::vector<std::byte> bytes(static_cast<std::size_t>(size));
    std::ifstream stream(file, std::ios::binary);
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!stream)
    {
        return std::nullopt;
    }
    return bytes;
}

} // namespace platform
