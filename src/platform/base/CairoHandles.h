// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Owning pointers for the C objects of Cairo, and a context over a surface. Text and pictures draw through
// them.
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

// Cairo answers a failure with an object in an error state; here that is null.
inline CairoSurface UsableSurface(cairo_surface_t* surface)
{
    CairoSurface owned(surface);
    return cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS ? std::move(owned) : nullptr;
}

inline CairoContext UsableContext(cairo_surface_t* surface)
{
    CairoContext context(cairo_create(surface));
    return cairo_status(context.get()) == CAIRO_STATUS_SUCCESS ? std::move(context) : nullptr;
}

} // namespace platform
