// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A ray for each sample. The numbers of light, material and haze are the game's.
#include "sheets/Views.h"

#include "common/Maths.h"

#include <algorithm>
#include <array>
#include <optional>

namespace maker
{

namespace
{

constexpr double kRadius = 0.6;
constexpr double kFogStart = 10.0;
constexpr double kFogEnd = 50.0;

Vector const kFog = {0.05, 0.05, 0.1};
Vector const kLightFromEye = {20.0, 20.0, -20.0};

struct Vertex
{
    Vector place;
    Vector colour;
    double u;
    double v;
};

// Ambient, diffuse and specular light as fixed-function OpenGL adds them up at a vertex.
Vector Lit(Vector const& normal, Vector const& place, Vector const& eye)
{
    Vector const toLight = Normalized(eye + kLightFromEye - place);
    Vector const half = Normalized(toLight + Normalized(eye - place));
    double const facing = std::max(0.0, Dot(normal, toLight));
    double const shine = facing > 0.0 ? Power(std::max(0.0, Dot(normal, half)), 40.0) : 0.0;
    double const base = 0.8 * (0.2 + 0.1 + 0.5 * facing);
    Vector const sum = Vector{base, base, base} + Vector{0.8, 0.6, 0.6} * (0.6 * shine);
    return {std::min(1.0, sum.x), std::min(1.0, sum.y), std::min(1.0, sum.z)};
}

Vertex SphereVertex(int slice, int stack, int slices, Vector const& eye)
{
    double const u = static_cast<double>(slice) / slices;
    double const v = static_cast<double>(stack) / slices;
    double const ring = Sine(0.5 * v);
    Vector const normal = {ring * Sine(u), ring * Cosine(u), Cosine(0.5 * v)};
    return {normal * kRadius, Lit(normal, normal * kRadius, eye), 1.0 - u, v};
}

using Triangle = std::array<Vertex, 3>;

std::vector<Triangle> Sphere(int slices, Vector const& eye)
{
    std::vector<Triangle> triangles;
    for (int stack = 0; stack < slices; ++stack)
    {
        for (int slice = 0; slice < slices; ++slice)
        {
            Vertex const a = SphereVertex(slice, stack, slices, eye);
            Vertex const b = SphereVertex(slice, stack + 1, slices, eye);
            Vertex const c = SphereVertex(slice + 1, stack, slices, eye);
            Vertex const d = SphereVertex(slice + 1, stack + 1, slices, eye);
            triangles.push_back({a, b, c});
            triangles.push_back({c, b, d});
        }
    }
    return triangles;
}

// The colour where a ray from the eye meets a triangle's front, after Moeller and Trumbore.
std::optional<Vector> Hit(Triangle const& triangle, Picture const& rock, Vector const& eye, Vector const& ray)
{
    Vector const first = triangle[1].place - triangle[0].place;
    Vector const second = triangle[2].place - triangle[0].place;
    if (Dot(Cross(first, second), triangle[0].place) * Dot(Cross(first, second), ray) >= 0.0)
    {
        return std::nullopt;
    }
    Vector const across = Cross(ray, second);
    double const scale = Dot(first, across);
    Vector const from = eye - triangle[0].place;
    double const b = Dot(from, across) / scale;
    double const c = Dot(ray, Cross(from, first)) / scale;
    if (b < 0.0 || c < 0.0 || b + c > 1.0)
    {
        return std::nullopt;
    }
    double const a = 1.0 - b - c;
    Vector const light = triangle[0].colour * a + triangle[1].colour * b + triangle[2].colour * c;
    double const u = a * triangle[0].u + b * triangle[1].u + c * triangle[2].u;
    double const v = a * triangle[0].v + b * triangle[1].v + c * triangle[2].v;
    double const distance = Dot(second, Cross(from, first)) / scale;
    return Mixed(light * rock.Sample(u, v), kFog,
                 std::clamp((distance - kFogStart) / (kFogEnd - kFogStart), 0.0, 1.0));
}

// Each face by its four corners: (-1, 1), (-1, -1), (1, -1) and (1, 1) of the tile.
struct Face
{
    Vector corners[4];
};

constexpr std::array<Face, 6> kBox = {{
    {{{-1, 1, -1}, {-1, -1, -1}, {1, -1, -1}, {1, 1, -1}}},
    {{{-1, 1, 1}, {1, 1, 1}, {1, -1, 1}, {-1, -1, 1}}},
    {{{-1, 1, 1}, {-1, -1, 1}, {-1, -1, -1}, {-1, 1, -1}}},
    {{{1, 1, 1}, {1, 1, -1}, {1, -1, -1}, {1, -1, 1}}},
    {{{-1, 1, -1}, {1, 1, -1}, {1, 1, 1}, {-1, 1, 1}}},
    {{{-1, -1, 1}, {1, -1, 1}, {1, -1, -1}, {-1, -1, -1}}},
}};

Vector SkyAlong(Picture const& sky, Vector const& ray)
{
    for (Face const& face : kBox)
    {
        Vector const right = (face.corners[3] - face.corners[0]) * 0.5;
        Vector const up = (face.corners[0] - face.corners[1]) * 0.5;
        Vector const out = (face.corners[0] + face.corners[2]) * 0.5;
        double const depth = Dot(ray, out);
        double const s = Dot(ray, right) / depth;
        double const t = Dot(ray, up) / depth;
        if (depth > 0.0 && std::abs(s) <= 1.000001 && std::abs(t) <= 1.000001)
        {
            return sky.Sample(s, -t);
        }
    }
    return {};
}

// Where the rays of a view go; x and y in pixels.
class Lens
{
public:
    Lens(View const& view, int width, int height) : m_forward(Normalized(view.forward))
    {
        Vector const aside = std::abs(m_forward.y) > 0.95 ? Vector{0.0, 0.0, 1.0} : Vector{0.0, 1.0, 0.0};
        double const half = view.fieldOfView / 720.0;
        m_scale = Sine(half) / Cosine(half) / (0.5 * height);
        m_right = Normalized(Cross(m_forward, aside));
        m_up = Cross(m_right, m_forward);
        m_x = 0.5 * width;
        m_y = 0.5 * height;
    }

    Vector Ray(double x, double y) const
    {
        return Normalized(m_forward + m_right * ((x - m_x) * m_scale) + m_up * ((m_y - y) * m_scale));
    }

private:
    Vector m_forward;
    Vector m_right;
    Vector m_up;
    double m_scale;
    double m_x;
    double m_y;
};

} // namespace

Picture RenderAsteroid(Picture const& rock, Picture const& sky, View const& view, int slices, int size)
{
    Lens const lens(view, size, size);
    std::vector<Triangle> const triangles = Sphere(slices, view.eye);
    return Sampled(size, size,
                   [&](double x, double y)
                   {
                       Vector const ray = lens.Ray(x, y);
                       for (Triangle const& triangle : triangles)
                       {
                           if (std::optional<Vector> const colour = Hit(triangle, rock, view.eye, ray))
                           {
                               return *colour;
                           }
                       }
                       return SkyAlong(sky, ray);
                   });
}

Picture RenderSky(Picture const& sky, View const& view, int width, int height)
{
    Lens const lens(view, width, height);
    return Sampled(width, height, [&](double x, double y) { return SkyAlong(sky, lens.Ray(x, y)); });
}

Picture RenderPanorama(Picture const& sky, int width)
{
    int const height = width / 2;
    return Sampled(width, height,
                   [&](double x, double y)
                   {
                       double const ring = Sine(0.5 * y / height);
                       return SkyAlong(sky, {ring * Sine(x / width), Cosine(0.5 * y / height),
                                             -ring * Cosine(x / width)});
                   });
}

} // namespace maker
