// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The shapes as text and as pixels.
#include "icons/Render.h"

#include "icons/Icon.h"

#include <cairo.h>

#include <fstream>
#include <iomanip>
#include <memory>
#include <sstream>

namespace maker
{

namespace
{

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;
using Pattern = std::unique_ptr<cairo_pattern_t, decltype(&cairo_pattern_destroy)>;

constexpr int kMasterSize = 512;

bool IsShown(Shape const& shape, int size)
{
    return size >= shape.smallest && size <= shape.largest;
}

void AddStop(cairo_pattern_t* pattern, double offset, Colour const& colour)
{
    auto const part = [&](int shift) { return (colour.rgb >> shift & 0xFF) / 255.0; };
    cairo_pattern_add_color_stop_rgba(pattern, offset, part(16), part(8), part(0), colour.alpha);
}

Pattern MakePattern(Paint const& paint)
{
    cairo_pattern_t* pattern =
        paint.radial ? cairo_pattern_create_radial(paint.from.x, paint.from.y, 0.0, paint.from.x,
                                                   paint.from.y, paint.to.x)
                     : cairo_pattern_create_linear(paint.from.x, paint.from.y, paint.to.x, paint.to.y);
    AddStop(pattern, 0.0, paint.start);
    AddStop(pattern, 1.0, paint.end);
    return {pattern, &cairo_pattern_destroy};
}

void ClipToTile(cairo_t* context)
{
    double const far = kIconUnits - kIconCorner;
    double const quarter = 1.5707963267948966;
    cairo_new_sub_path(context);
    cairo_arc(context, far, kIconCorner, kIconCorner, -quarter, 0.0);
    cairo_arc(context, far, far, kIconCorner, 0.0, quarter);
    cairo_arc(context, kIconCorner, far, kIconCorner, quarter, 2.0 * quarter);
    cairo_arc(context, kIconCorner, kIconCorner, kIconCorner, 2.0 * quarter, 3.0 * quarter);
    cairo_close_path(context);
    cairo_clip(context);
}

void Fill(cairo_t* context, Shape const& shape)
{
    cairo_new_path(context);
    for (Point const& point : shape.points)
    {
        cairo_line_to(context, point.x, point.y);
    }
    if (shape.points.empty())
    {
        cairo_arc(context, shape.centre.x, shape.centre.y, shape.radius, 0.0, 6.283185307179586);
    }
    cairo_close_path(context);
    Pattern const pattern = MakePattern(shape.paint);
    cairo_set_source(context, pattern.get());
    cairo_fill(context);
}

std::string Hex(int rgb)
{
    std::ostringstream text;
    text << '#' << std::hex << std::setw(6) << std::setfill('0') << rgb;
    return text.str();
}

std::string Stop(int offset, Colour const& colour)
{
    std::ostringstream text;
    text << "<stop offset=\"" << offset << "\" stop-color=\"" << Hex(colour.rgb) << '"';
    if (colour.alpha < 1.0)
    {
        text << " stop-opacity=\"" << colour.alpha << '"';
    }
    text << "/>";
    return text.str();
}

std::string Gradient(Paint const& paint, std::size_t number)
{
    std::ostringstream text;
    char const* const kind = paint.radial ? "radialGradient" : "linearGradient";
    text << "    <" << kind << R"( id="p)" << number << R"(" gradientUnits="userSpaceOnUse" )";
    if (paint.radial)
    {
        text << "cx=\"" << paint.from.x << "\" cy=\"" << paint.from.y << "\" r=\"" << paint.to.x << '"';
    }
    else
    {
        text << "x1=\"" << paint.from.x << "\" y1=\"" << paint.from.y << "\" x2=\"" << paint.to.x
             << "\" y2=\"" << paint.to.y << '"';
    }
    text << '>' << Stop(0, paint.start) << Stop(1, paint.end) << "</" << kind << ">\n";
    return text.str();
}

std::string Element(Shape const& shape, std::size_t number)
{
    std::ostringstream text;
    text << "    <";
    if (shape.points.empty())
    {
        text << "circle cx=\"" << shape.centre.x << "\" cy=\"" << shape.centre.y << "\" r=\"" << shape.radius
             << '"';
    }
    else
    {
        text << "polygon points=\"";
        for (std::size_t i = 0; i < shape.points.size(); ++i)
        {
            text << (i == 0 ? "" : " ") << shape.points[i].x << ',' << shape.points[i].y;
        }
        text << '"';
    }
    text << " fill=\"url(#p" << number << ")\"/>\n";
    return text.str();
}

} // namespace

bool WriteIconSvg(std::string const& path)
{
    std::ostringstream paints;
    std::ostringstream drawing;
    std::size_t number = 0;
    for (Shape const& shape : IconShapes())
    {
        if (!IsShown(shape, kMasterSize))
        {
            continue;
        }
        paints << Gradient(shape.paint, number);
        drawing << Element(shape, number++);
    }
    std::ofstream out(path);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<!-- SPDX-FileCopyrightText: 2026 the Quarrow team -->\n<!-- SPDX-License-Identifier: CC0-1.0 "
           "-->\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"512\" height=\"512\" viewBox=\"0 0 512 512\">\n"
        << "  <title>Quarrow</title>\n  <defs>\n    <clipPath id=\"tile\"><rect width=\"" << kIconUnits
        << "\" height=\"" << kIconUnits << "\" rx=\"" << kIconCorner << "\"/></clipPath>\n"
        << paints.str() << "  </defs>\n  <g clip-path=\"url(#tile)\">\n"
        << drawing.str() << "  </g>\n</svg>\n";
    out.close();
    return !out.fail();
}

bool WriteIconPng(std::string const& path, int size)
{
    Surface const surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size, size),
                          &cairo_surface_destroy);
    Context const context(cairo_create(surface.get()), &cairo_destroy);
    cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_BEST);
    cairo_scale(context.get(), size / kIconUnits, size / kIconUnits);
    ClipToTile(context.get());
    for (Shape const& shape : IconShapes())
    {
        if (IsShown(shape, size))
        {
            Fill(context.get(), shape);
        }
    }
    return cairo_surface_write_to_png(surface.get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

} // namespace maker
