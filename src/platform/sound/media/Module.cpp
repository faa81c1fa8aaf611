// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The one name that the module exports.
#include "platform/sound/media/EncodedFile.h"

#if defined(_WIN32)
#define QUARROW_EXPORT __declspec(dllexport)
#else
#define QUARROW_EXPORT __attribute__((visibility("default")))
#endif

extern "C" QUARROW_EXPORT platform::OpenMedia QuarrowOpenMedia;

extern "C" platform::MediaFile* QuarrowOpenMedia(std::byte const* bytes, std::size_t size)
{
    return platform::EncodedFile::fromBytes({bytes, size}).release();
}
