// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A picture in memory, and golden pictures to compare it with.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

// RGB bytes, top row first.
class Picture
{
public:
    Picture(int width, int height);

    int width() const { return m_width; }
    int height() const { return m_height; }
    std::uint8_t* row(int y) { return m_bytes.data() + offset(y); }
    std::uint8_t const* row(int y) const { return m_bytes.data() + offset(y); }

    // An unreadable file gives a picture of 0 x 0.
    static Picture load(std::string const& file);
    bool save(std::string const& file) const;

private:
    std::size_t offset(int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) * 3;
    }

    int m_width;
    int m_height;
    std::vector<std::uint8_t> m_bytes;
};

// A part of a picture, pixels from its top left.
struct PictureArea
{
    int x;
    int y;
    int width;
    int height;
};

// Succeeds when the picture looks like tests/pictures/golden/<name>.png: on average at most 1.5 of 255 apart,
// and at most one pixel in a hundred by more than 40. Software OpenGL rounds differently from version to
// version, along edges above all, and FreeType's grey levels move by a few. Most pixels are dark, so that a
// menu could be missing all the same: in each of the subjects, by default the whole picture, at most one in
// ten of the pixels that are lit in either picture differs by more than 40.
testing::AssertionResult IsLike(Picture const& picture, std::string const& name,
                                std::vector<PictureArea> subjects = {});

// The same. On failure the picture is left beside the test program. With QUARROW_UPDATE_GOLDEN set it becomes
// the golden one.
testing::AssertionResult LooksLike(Picture const& picture, std::string const& name,
                                   std::vector<PictureArea> const& subjects = {});
