// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "synth/WavFile.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <vector>

namespace music
{

namespace
{

void Append(std::vector<unsigned char>& bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i, value >>= 8)
        bytes.push_back(static_cast<unsigned char>(value & 0xFFU));
}

void Append(std::vector<unsigned char>& bytes, char const* text)
{
    for (; *text != 0; ++text)
        bytes.push_back(static_cast<unsigned char>(*text));
}

void AppendSample(std::vector<unsigned char>& bytes, float value)
{
    double const scaled = std::floor(std::clamp(static_cast<double>(value), -1.0, 1.0) * 8388607.0 + 0.5);
    Append(bytes, static_cast<std::uint32_t>(static_cast<std::int32_t>(scaled)), 3);
}

} // namespace

bool WriteWav(StereoLoop const& loop, std::string const& path)
{
    auto const dataBytes = static_cast<std::uint32_t>(loop.Length() * 6);
    std::vector<unsigned char> bytes;
    bytes.reserve(dataBytes + 44);
    Append(bytes, "RIFF");
    Append(bytes, dataBytes + 36, 4);
    Append(bytes, "WAVEfmt ");
    Append(bytes, 16, 4);
    Append(bytes, 1, 2); // PCM
    Append(bytes, 2, 2);
    Append(bytes, 44100, 4);
    Append(bytes, 44100 * 6, 4);
    Append(bytes, 6, 2);
    Append(bytes, 24, 2);
    Append(bytes, "data");
    Append(bytes, dataBytes, 4);
    for (std::size_t i = 0; i < loop.Length(); ++i)
    {
        AppendSample(bytes, loop[i].left);
        AppendSample(bytes, loop[i].right);
    }
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(std::fopen(path.c_str(), "wb"), std::fclose);
    return file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
           std::fflush(file.get()) == 0;
}

} // namespace music
