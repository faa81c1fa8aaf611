// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Any bytes as a picture, drawn stretched and flipped as textures are.
#include "platform/image/ImageHeader.h"
#include "platform/image/ImageImporter.h"

#include <array>
#include <span>

// SDL_image forgets a few bytes of its own over some broken files.
extern "C" char const* __lsan_default_suppressions()
{
    return "leak:libSDL2";
}

// Asked for more memory than there is, the system answers null, and the decoders take that for an answer.
extern "C" char const* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const bytes = std::as_bytes(std::span(data, size));
    auto const header = platform::ReadImageHeader(bytes);
    // Larger pictures take the same paths, only longer.
    constexpr std::int64_t kMostPixels = 1 << 20;
    if (!header || std::int64_t{header->description.width} * header->description.height > kMostPixels)
    {
        return 0;
    }
    auto const importer = platform::ImageImporter::forType(header->type);
    constexpr int kSide = 64;
    std::array<std::uint32_t, std::size_t{kSide} * kSide> target{};
    importer->setTarget({target.data(), kSide, kSide, 32});
    importer->setMatrix(double{kSide} / header->description.width,
                        -double{kSide} / header->description.height, 0.0, kSide);
    if (importer->setData(bytes))
    {
        importer->draw();
    }
    return 0;
}
