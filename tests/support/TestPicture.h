// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A temporary picture file, deleted with the object.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

class TestPicture
{
public:
    // A colour, not premultiplied: 0xAARRGGBB.
    using Colour = std::uint32_t;

    // The colour at (x, y), counted from the picture's top left.
    using Painter = std::function<Colour(int x, int y)>;

    // An uncompressed bitmap file with an alpha channel.
    TestPicture(int width, int height, Painter const& painter);
    ~TestPicture();
    TestPicture(TestPicture const&) = delete;
    TestPicture& operator=(TestPicture const&) = delete;

    std::filesystem::path const& file() const { return m_file; }

private:
    std::filesystem::path m_file;
};

// The same colour all over.
TestPicture::Painter Plain(TestPicture::Colour colour);
