// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Styled strings: measured and drawn into a bitmap. One point is one pixel. StringTexture is the caller.
#pragma once

#include "platform/base/Geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace platform
{

// A font and a foreground colour. Equal sets are one object, kept until the process ends.
class TextAttributes
{
public:
    // fontName: a family; one that the system lacks falls back to a sans-serif. fontSize: pixels, at least 1
    // is used.
    static std::shared_ptr<TextAttributes const> shared(std::string const& fontName, float fontSize,
                                                        Color foreground);

    std::string const& fontName() const { return m_fontName; }
    float fontSize() const { return m_fontSize; }
    Color foreground() const { return m_foreground; }

private:
    TextAttributes(std::string fontName, float fontSize, Color foreground);

    std::string m_fontName;
    float m_fontSize;
    Color m_foreground;
};

// UTF-8 text with one set of attributes for all of it. Invalid bytes show as replacement characters.
class AttributedString
{
public:
    AttributedString(std::string string, std::shared_ptr<TextAttributes const> attributes);

    std::string const& string() const { return m_string; }
    TextAttributes const& attributes() const { return *m_attributes; }

    // Width and line height in pixels, blanks at the ends included; (0, 0) for the empty string.
    Size size() const;

private:
    std::string m_string;
    std::shared_ptr<TextAttributes const> m_attributes;
};

// A bitmap to draw boxes and text into: RGBA bytes, premultiplied, top row first, transparent at first.
// Points and rectangles have their origin at the bottom left.
class TextBitmap
{
public:
    // size: pixels; the bitmap has the whole pixels of it, and none where that is 0 or the memory is refused.
    explicit TextBitmap(Size size);
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
    struct Canvas;
    Size m_size;
    std::unique_ptr<Canvas> m_canvas;
};

} // namespace platform
