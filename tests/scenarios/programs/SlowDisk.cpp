// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A disk that takes half a second for each fsync, by way of LD_PRELOAD. It logs each one as it begins.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

extern "C" int fsync(int)
{
    std::fputs("fsync\n", stderr);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    return 0;
}
