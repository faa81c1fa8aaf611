// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Text over Pango and Cairo. The bitmap is one of Cairo's, turned into RGBA bytes when it is asked for.
#include "platform/text/Text.h"

#include "platform/base/CairoHandles.h"
#include "platform/text/TextLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform
{
namespace
{

constexpr float kSmallestFont = 1.0F;      // pixels
constexpr float kLargestFont = 2000.0F;    // pixels
constexpr float kLongestSide = 16384.0F;   // pixels
constexpr float kMostPixels = 16777216.0F; // 64 MiB

// Negated comparisons, so that a NaN takes the smallest size and makes no bitmap.
float UsableFontSize(float fontSize)
{
    return !(fontSize >= kSmallestFont) ? kSmallestFont : std::min(fontSize, kLargestFont);
}

int WholePixels(float length)
{
    return (length >= 1.0F && length <= kLongestSide) ? static_cast<int>(length) : 0;
}

CairoSurface MakeSurface(Size size)
{
    int const width = WholePixels(size.width);
    int const height = WholePixels(size.height);
    if (width == 0 || height == 0 || static_cast<float>(width) * static_cast<float>(height) > kMostPixels)
    {
        return nullptr;
    }
    return UsableSurface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
}

void SetColor(cairo_t* context, Color color)
{
    cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
}

// A rectangle in the bitmap's own coordinates, whose y runs down.
void AddRectangle(cairo_t* context, Rect rect, double inset, double bitmapHeight)
{
    double const top = bitmapHeight - double{rect.origin.y} - double{rect.size.height};
    cairo_rectangle(context, double{rect.origin.x} + inset, top + inset,
                    double{rect.size.width} - 2.0 * inset, double{rect.size.height} - 2.0 * inset);
}

// Cairo's pixel is a native 32-bit number, alpha in the top byte.
void StoreRgba(std::uint32_t const* pixels, std::size_t count, std::uint8_t* bytes)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        bytes[4 * i] = static_cast<std::uint8_t>(pixels[i] >> 16U);
        bytes[4 * i + 1] = static_cast<std::uint8_t>(pixels[i] >> 8U);
        bytes[4 * i + 2] = static_cast<std::uint8_t>(pixels[i]);
        bytes[4 * i + 3] = static_cast<std::uint8_t>(pixels[i] >> 24U);
    }
}

} // namespace

TextAttributes::TextAttributes(std::string fontName, float fontSize, Color foreground)
    : m_fontName(std::move(fontName)),
      m_fontSize(UsableFontSize(fontSize)),
      m_foreground(foreground)
{
}

std::shared_ptr<TextAttributes const> TextAttributes::shared(std::string const& fontName, float fontSize,
                                                             Color foreground)
{
    static std::vector<std::shared_ptr<TextAttributes const>> all;
    std::string const name = fontName.substr(0, fontName.find('\0'));
    float const usable = UsableFontSize(fontSize);
    auto const same = std::find_if(all.begin(), all.end(),
                                   [&](auto const& attributes)
                                   {
                                       return attributes->m_fontName == name &&
                                              attributes->m_fontSize == usable &&
                                              attributes->m_foreground == foreground;
                                   });
    if (same != all.end())
    {
        return *same;
    }
    all.push_back(std::shared_ptr<TextAttributes const>(new TextAttributes(name, usable, foreground)));
    return all.back();
}

AttributedString::AttributedString(std::string string, std::shared_ptr<TextAttributes const> attributes)
    : m_string(std::move(string)),
      m_attributes(std::move(attributes))
{
}

Size AttributedString::size() const
{
    if (m_string.empty())
    {
        return {};
    }
    int width = 0;
    int height = 0;
    pango_layout_get_pixel_size(LayOutLine(m_string, *m_attributes), &width, &height);
    return {static_cast<float>(width), static_cast<float>(height)};
}

struct TextBitmap::Canvas
{
    CairoSurface surface;
    CairoContext context;
};

TextBitmap::TextBitmap(Size size) : m_size(size)
{
    CairoSurface surface = MakeSurface(size);
    CairoContext context = surface ? UsableContext(surface.get()) : nullptr;
    if (context)
    {
        m_canvas = std::make_unique<Canvas>(Canvas{std::move(surface), std::move(context)});
    }
}

TextBitmap::~TextBitmap() = default;

void TextBitmap::fillRect(Rect rect, Color color)
{
    if (!m_canvas)
    {
        return;
    }
    cairo_t* const context = m_canvas->context.get();
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    SetColor(context, color);
    AddRectangle(context, rect, 0.0, pixelsHigh());
    cairo_fill(context);
}

void TextBitmap::frameRect(Rect rect, Color color, float lineWidth)
{
    if (2.0F * lineWidth >= std::min(rect.size.width, rect.size.height))
    {
        fillRect(rect, color);
        return;
    }
    if (!m_canvas || !(lineWidth > 0.0F))
    {
        return;
    }
    cairo_t* const context = m_canvas->context.get();
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    SetColor(context, color);
    AddRectangle(context, rect, 0.0, pixelsHigh());
    AddRectangle(context, rect, lineWidth, pixelsHigh());
    cairo_fill(context);
}

void TextBitmap::drawString(AttributedString const& string, Color color, Point bottomLeft)
{
    if (!m_canvas || string.string().empty())
    {
        return;
    }
    cairo_t* const context = m_canvas->context.get();
    PangoLayout* const layout = LayOutLine(string.string(), string.attributes());
    int lineHeight = 0;
    pango_layout_get_pixel_size(layout, nullptr, &lineHeight);
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
    SetColor(context, color);
    cairo_move_to(context, std::round(double{bottomLeft.x}),
                  std::round(double{static_cast<float>(pixelsHigh()) - bottomLeft.y}) - lineHeight);
    pango_cairo_show_layout(context, layout);
    cairo_new_path(context);
}

int TextBitmap::pixelsWide() const
{
    return m_canvas ? cairo_image_surface_get_width(m_canvas->surface.get()) : 0;
}

int TextBitmap::pixelsHigh() const
{
    return m_canvas ? cairo_image_surface_get_height(m_canvas->surface.get()) : 0;
}

std::vector<std::uint8_t> TextBitmap::rgba() const
{
    if (!m_canvas)
    {
        return {};
    }
    cairo_surface_t* const surface = m_canvas->surface.get();
    cairo_surface_flush(surface);
    auto const wide = static_cast<std::size_t>(pixelsWide());
    auto const high = static_cast<std::size_t>(pixelsHigh());
    std::size_t const stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface)) / 4;
    auto const* const pixels = reinterpret_cast<std::uint32_t const*>(cairo_image_surface_get_data(surface));
    std::vector<std::uint8_t> bytes(wide * high * 4);
    for (std::size_t row = 0; row < high; ++row)
    {
        StoreRgba(pixels + row * stride, wide, bytes.data() + row * wide * 4);
    }
    return bytes;
}

} // namespace platform
