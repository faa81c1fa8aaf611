// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Styled strings: measured and drawn into a bitmap, in the game's pixels. One point is one pixel.
#pragma once

#include "platform/base/Geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace platform
{

struct TextAttributes
{
    std::string fontName; // a family; one that the system lacks falls back to a sans-serif
    float fontSize;       // pixels
};

// One line of UTF-8 text with one set of attributes for all of it.
class AttributedString
{
public:
    AttributedString(std::string string, TextAttributes attributes);

    std::string const& string() const { return m_string; }
    TextAttributes const& attributes() const { return m_attributes; }

    // Width and line height in pixels, blanks at the ends included; (0, 0) for the empty string.
    Size size() const;

private:
    std::string m_string;
    TextAttributes m_attributes;
};

// A bitmap to draw boxes and text into: RGBA bytes, premultiplied, top row first, transparent at first.
// Points and rectangles are in the game's pixels, with their origin at the bottom left.
class TextBitmap
{
public:
    // scale: pixels of the bitmap for each of the game's, in both directions. The bitmap has the whole pixels
    // of size times scale, and none where the memory is refused.
    explicit TextBitmap(Size size, int scale = 1);
    ~TextBitmap();
    TextBitmap(TextBitmap const&) = delete;
    TextBitmap& operator=(TextBitmap const&) = delete;

    void fillRect(Rect rect, Color color);                   // replaces what was there
    void frameRect(Rect rect, Color color, float lineWidth); // the frame lies inside the rectangle
    void drawString(AttributedString const& string, Color color, Point bottomLeft);

    Size size() const { return m_size; } // as given
    int pixelsWide() const;
    int pixelsHigh() const;

    // pixelsWide * pixelsHigh * 4 bytes.
    std::vector<std::uint8_t> rgba() const;

private:
    double height() const { return static_cast<double>(pixelsHigh()) / m_scale; } // of the whole pixels

    struct Canvas;
    Size m_size;
    int m_scale;
    std::unique_ptr<Canvas> m_canvas;
};

} // namespace platform
