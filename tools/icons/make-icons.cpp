// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Writes the icon's master drawing and its pictures: make-icons FOLDER.
#include "common/Program.h"
#include "icons/Render.h"

#include <algorithm>
#include <array>

namespace
{

constexpr std::array<int, 9> kSizes = {16, 22, 24, 32, 48, 64, 128, 256, 512};

bool WriteAll(std::string const& folder)
{
    if (!maker::WriteIconSvg(folder + "/quarrow.svg"))
    {
        return false;
    }
    return std::all_of(
        kSizes.begin(), kSizes.end(),
        [&](int size)
        { return maker::WriteIconPng(folder + "/quarrow-" + std::to_string(size) + ".png", size); });
}

} // namespace

int main(int argc, char** argv)
{
    return maker::RunMaker(argc, argv, WriteAll);
}
