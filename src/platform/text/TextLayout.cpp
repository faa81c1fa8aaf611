// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/text/TextLayout.h"

#include "platform/base/CairoHandles.h"
#include "platform/text/Text.h"

#include <memory>

namespace platform
{
namespace
{

struct PangoDeleter
{
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
    void operator()(gpointer object) const { g_object_unref(object); }
};

template <typename Object>
using PangoHandle = std::unique_ptr<Object, PangoDeleter>;

// Greyscale, slightly hinted, with whole-pixel metrics, whatever the desktop is set to, so that the same text
// gives the same pixels everywhere.
PangoHandle<PangoLayout> MakeLayout()
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
    return layout;
}

} // namespace

PangoLayout* LayOutLine(std::string const& text, TextAttributes const& attributes)
{
    // Shared by all lines: making a layout costs more than laying out a short line.
    static PangoHandle<PangoLayout> const layout = MakeLayout();

    PangoHandle<PangoFontDescription> const font(pango_font_description_new());
    pango_font_description_set_family_static(font.get(), attributes.fontName.c_str());
    pango_font_description_set_absolute_size(font.get(), double{attributes.fontSize} * PANGO_SCALE);
    pango_layout_set_font_description(layout.get(), font.get());
    // A string is measured and then drawn; the same text need not be laid out again.
    if (text != pango_layout_get_text(layout.get()))
    {
        pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    }
    return layout.get();
}

} // namespace platform
