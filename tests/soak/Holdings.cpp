// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "soak/Holdings.h"

#include "support/RecordingGL.h"

#include <AL/al.h>
#include <malloc.h>

#include <filesystem>

// Of sanitizer builds, which have an allocator of their own.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();

namespace
{

std::size_t MemoryInUse()
{
    if (__sanitizer_get_current_allocated_bytes != nullptr)
    {
        return __sanitizer_get_current_allocated_bytes();
    }
    auto const heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

// Grows for ever, and is no part of the game.
std::size_t MemoryOfTheRecorder()
{
    auto const& deletions = recording::contextDeletions();
    return deletions.capacity() * sizeof deletions[0];
}

// Names are small numbers that are used again once they are free.
std::size_t CountNames(ALboolean (*exists)(ALuint))
{
    constexpr ALuint kMostNames = 20000;
    std::size_t count = 0;
    for (ALuint name = 1; name <= kMostNames; ++name)
    {
        count += exists(name) == AL_TRUE ? 1 : 0;
    }
    return count;
}

std::size_t OpenFiles()
{
    std::filesystem::directory_iterator const files("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

} // namespace

Holdings Holdings::Now()
{
    return {MemoryInUse() - MemoryOfTheRecorder(),
            recording::textures().size(),
            recording::lists().size(),
            CountNames(alIsSource),
            CountNames(alIsBuffer),
            OpenFiles()};
}

std::ostream& operator<<(std::ostream& stream, Holdings const& holdings)
{
    return stream << holdings.memory << " bytes, " << holdings.textures << " textures, " << holdings.lists
                  << " display lists, " << holdings.sources << " sources, " << holdings.buffers
                  << " buffers, " << holdings.files << " files";
}
