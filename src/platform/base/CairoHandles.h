// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Owning pointers for the C objects of Cairo.
#pragma once

#include <cairo.h>

#include <memory>

namespace platform
{

struct CairoDeleter
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};

using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using CairoContext = std::unique_ptr<cairo_t, CairoDeleter>;
using CairoFontOptions = std::unique_ptr<cairo_font_options_t, CairoDeleter>;

} // namespace platform
