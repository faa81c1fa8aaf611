// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Text over Pango and Cairo. A surface that Cairo cannot make has no pixels and ignores what is drawn.
#include "platform/text/Text.h"

#include "platform/base/CairoHandles.h"
#include "platform/text/TextLayout.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform
{
namespace
{

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

} // namespace

AttributedString::AttributedString(std::string string, TextAttributes attributes)
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
    pango_layout_get_pixel_size(LayOutLine(m_string, m_attributes), &width, &height);
    return {static_cast<float>(width), static_cast<float>(height)};
}

struct TextBitmap::Canvas
{
    CairoSurface surface;
    CairoContext context;
};

// Under a scale Cairo rasterises glyphs as sharply as the pixels allow, where they stand without one.
TextBitmap::TextBitmap(Size size, int scale)
    : m_size(size),
      m_scale(scale),
      m_canvas(std::make_unique<Canvas>())
{
    auto const factor = static_cast<float>(scale);
    m_canvas->surface.reset(cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, static_cast<int>(size.width * factor), static_cast<int>(size.height * factor)));
    m_canvas->context.reset(cairo_create(m_canvas->surface.get()));
    cairo_scale(m_canvas->context.get(), scale, scale);
}

TextBitmap::~TextBitmap() = default;

void TextBitmap::fillRect(Rect rect, Color color)
{
    cairo_t* const context = m_canvas->context.get();
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    SetColor(context, color);
    AddRectangle(context, rect, 0.0, height());
    cairo_fill(context);
}

void TextBitmap::frameRect(Rect rect, Color color, float lineWidth)
{
    if (2.0F * lineWidth >= std::min(rect.size.width, rect.size.height))
    {
        fillRect(rect, color);
        return;
    }
    cairo_t* const context = m_canvas->context.get();
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    SetColor(context, color);
    AddRectangle(context, rect, 0.0, height());
    AddRectangle(context, rect, lineWidth, height());
    cairo_fill(context);
}

void TextBitmap::drawString(AttributedString const& string, Color color, Point bottomLeft)
{
    cairo_t* const context = m_canvas->context.get();
    PangoLayout* const layout = LayOutLine(string.string(), string.attributes());
    int lineHeight = 0;
    pango_layout_get_pixel_size(layout, nullptr, &lineHeight);
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
    SetColor(context, color);
    cairo_move_to(context, std::round(double{bottomLeft.x}),
                  std::round(height() - double{bottomLeft.y}) - lineHeight);
    pango_cairo_show_layout(context, layout);
    cairo_new_path(context);
}

int TextBitmap::pixelsWide() const
{
    return cairo_image_surface_get_width(m_canvas->surface.get());
}

int TextBitmap::pixelsHigh() const
{
    return cairo_image_surface_get_height(m_canvas->surface.get());
}

std::vector<std::uint8_t> TextBitmap::rgba() const
{
    cairo_surface_t* const surface = m_canvas->surface.get();
    cairo_surface_flush(surface);
    int const rowBytes = pixelsWide() * 4;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(rowBytes) *
                                    static_cast<std::size_t>(pixelsHigh()));
    SDL_ConvertPixels(pixelsWide(), pixelsHigh(), SDL_PIXELFORMAT_ARGB8888,
                      cairo_image_surface_get_data(surface), cairo_image_surface_get_stride(surface),
                      SDL_PIXELFORMAT_RGBA32, bytes.data(), rowBytes);
    return bytes;
}

} // namespace platform
