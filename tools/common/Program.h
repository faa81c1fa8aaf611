// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The main function of a program with one operand, the file or folder to write to.
#pragma once

#include <cstdio>
#include <string>

namespace maker
{

// make(target) is false when the target can't be written. The result is the exit status.
template <class Make>
int RunMaker(int argc, char** argv, Make const& make)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: %s TARGET\n", argv[0]);
        return 2;
    }
    if (!make(std::string(argv[1])))
    {
        std::fprintf(stderr, "%s: can't write to %s\n", argv[0], argv[1]);
        return 1;
    }
    return 0;
}

} // namespace maker
