// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The shared Pango context: greyscale, slightly hinted, with whole-pixel metrics, whatever the desktop is set
// to, so that the same text gives the same pixels everywhere.
#include "platform/text/TextLayout.h"

#include "platform/base/CairoHandles.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace platform
{
namespace
{

struct PangoDeleter
{
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(char* text) const { g_free(text); }
};

template <typename Object>
using PangoHandle = std::unique_ptr<Object, PangoDeleter>;

// Never released: what is laid out while the program ends still finds it.
PangoLayout* MakeLayout()
{
    PangoHandle<PangoContext> const context(
        pango_font_map_create_context(pango_cairo_font_map_get_default()));
    CairoFontOptions const options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_context_set_round_glyph_positions(context.get(), TRUE);

    PangoHandle<PangoLayout> layout(pango_layout_new(context.get()));
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    return layout.release();
}

void SetFont(PangoLayout* layout, TextAttributes const& attributes)
{
    PangoHandle<PangoFontDescription> const description(pango_font_description_new());
    pango_font_description_set_family(description.get(), attributes.fontName().c_str());
    pango_font_description_set_absolute_size(description.get(), double{attributes.fontSize()} * PANGO_SCALE);
    pango_layout_set_font_description(layout, description.get());
}

// Pango counts in 1024ths of a pixel in an int. No glyph is wider than four times the font size on average,
// and a bitmap shows 16,384 pixels at most, so that what is cut off here could neither be counted nor seen.
std::size_t LongestText(float fontSize)
{
    constexpr float kLongestAtOnePixel = 500000.0F;
    constexpr std::size_t kLongest = 32768;
    return std::min(kLongest, static_cast<std::size_t>(kLongestAtOnePixel / fontSize));
}

std::string PlainLine(std::string const& text, std::size_t longest)
{
    PangoHandle<char> const valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(std::min(text.size(), longest))));
    std::string line(valid.get());
    auto const isControl = [](char c) { return (static_cast<unsigned char>(c) < 0x20) || (c == 0x7F); };
    std::replace_if(line.begin(), line.end(), isControl, ' ');
    return line;
}

} // namespace

void PrepareText()
{
    pango_cairo_font_map_get_default();
}

PangoLayout* LayOutLine(std::string const& text, TextAttributes const& attributes)
{
    static PangoLayout* const layout = MakeLayout();
    static std::string laidOut;
    static std::string fontName;
    static float fontSize = 0.0F;

    if (fontSize != attributes.fontSize() || fontName != attributes.fontName())
    {
        SetFont(layout, attributes);
        fontName = attributes.fontName();
        fontSize = attributes.fontSize();
        laidOut.clear();
        pango_layout_set_text(layout, "", 0);
    }
    if (laidOut != text)
    {
        std::string const line = PlainLine(text, LongestText(fontSize));
        pango_layout_set_text(layout, line.data(), static_cast<int>(line.size()));
        laidOut = text;
    }
    return layout;
}

} // namespace platform
