// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "math/qmath.h"

#include <cmath>

namespace
{

constexpr float kOneMinusEpsilon = 0.99999988F;
constexpr float kOnePlusEpsilon = 1.0000001F;

TQ3Quaternion Scaled(TQ3Quaternion const& q, double factor)
{
    return {static_cast<float>(q.w * factor), static_cast<float>(q.x * factor),
            static_cast<float>(q.y * factor), static_cast<float>(q.z * factor)};
}

// The unit axis along which the vector has its smallest component. On a tie: x before y before z.
TQ3Vector3D LeastAxis(TQ3Vector3D const& v)
{
    float const x = std::fabs(v.x);
    float const y = std::fabs(v.y);
    if (std::fmin(x, y) > std::fabs(v.z))
    {
        return {0.0F, 0.0F, 1.0F};
    }
    return x > y ? TQ3Vector3D{0.0F, 1.0F, 0.0F} : TQ3Vector3D{1.0F, 0.0F, 0.0F};
}

// A vector at right angles to the unit vector v.
TQ3Vector3D Perpendicular(TQ3Vector3D const& v)
{
    TQ3Vector3D const axis = LeastAxis(v);
    TQ3Vector3D result;
    Vector3D_Scale(&v, Vector3D_Dot(&axis, &v), &result);
    Vector3D_Subtract(&result, &axis, &result);
    return *Vector3D_Normalize(&result, &result);
}

} // namespace

TQ3Vector3D* Vector3D_Add(TQ3Vector3D const* a, TQ3Vector3D const* b, TQ3Vector3D* out)
{
    *out = {a->x + b->x, a->y + b->y, a->z + b->z};
    return out;
}

void Vector3D_Subtract(TQ3Vector3D const* a, TQ3Vector3D const* b, TQ3Vector3D* out)
{
    *out = {a->x - b->x, a->y - b->y, a->z - b->z};
}

void Vector3D_Scale(TQ3Vector3D const* a, float s, TQ3Vector3D* out)
{
    *out = {s * a->x, s * a->y, s * a->z};
}

float Vector3D_Dot(TQ3Vector3D const* a, TQ3Vector3D const* b)
{
    return a->x * b->x + a->y * b->y + a->z * b->z;
}

TQ3Vector3D* Vector3D_Cross(TQ3Vector3D const* a, TQ3Vector3D const* b, TQ3Vector3D* out)
{
    *out = {a->y * b->z - b->y * a->z, -(a->x * b->z - b->x * a->z), a->x * b->y - b->x * a->y};
    return out;
}

float Vector3D_GetLengthSquared(TQ3Vector3D const* a)
{
    return a->x * a->x + a->y * a->y + a->z * a->z;
}

TQ3Vector3D* Vector3D_Normalize(TQ3Vector3D const* a, TQ3Vector3D* out)
{
    float length = 0.0F;
    return Vector3D_Normalize(a, out, &length);
}

TQ3Vector3D* Vector3D_Normalize(TQ3Vector3D const* a, TQ3Vector3D* out, float* length)
{
    float const len = std::sqrt(Vector3D_GetLengthSquared(a));
    if (len < kQ3Epsilon)
    {
        *out = *a;
        *length = 0.0F;
        return out;
    }
    Vector3D_Scale(a, 1.0F / len, out);
    *length = len;
    return out;
}

TQ3Vector3D* Vector3D_Mod(TQ3Vector3D const* a, int n, TQ3Vector3D* out)
{
    auto const remainder = [n](float c)
    { return c - static_cast<float>(static_cast<int>(c / static_cast<float>(n)) * n); };
    *out = {remainder(a->x), remainder(a->y), remainder(a->z)};
    return out;
}

void Q3Vector3D_TransformQuaternion(TQ3Vector3D const* v, TQ3Quaternion const* q, TQ3Vector3D* out)
{
    TQ3Quaternion const p{0.0F, v->x, v->y, v->z};
    TQ3Quaternion const c{q->w, -q->x, -q->y, -q->z};

    // p.w is 0, but is multiplied all the same: 0 times infinity is NaN, and so is the result then.
    TQ3Quaternion const t{
        p.w * c.w - p.x * c.x - p.y * c.y - p.z * c.z, p.w * c.x + p.x * c.w + p.y * c.z - p.z * c.y,
        p.w * c.y + p.y * c.w + p.z * c.x - p.x * c.z, p.w * c.z + p.z * c.w + p.x * c.y - p.y * c.x};

    *out = {q->w * t.x + q->x * t.w + q->y * t.z - q->z * t.y,
            q->w * t.y + q->y * t.w + q->z * t.x - q->x * t.z,
            q->w * t.z + q->z * t.w + q->x * t.y - q->y * t.x};
}

TQ3Vector3D* Q3Point3D_TransformQuaternion(TQ3Vector3D const* p, TQ3Quaternion const* q, TQ3Vector3D* out)
{
    Q3Vector3D_TransformQuaternion(p, q, out);
    return out;
}

void Q3Quaternion_SetIdentity(TQ3Quaternion* out)
{
    *out = {1.0F, 0.0F, 0.0F, 0.0F};
}

void Q3Quaternion_Invert(TQ3Quaternion const* q, TQ3Quaternion* out)
{
    *out = {q->w, -q->x, -q->y, -q->z};
}

float Q3Quaternion_Dot(TQ3Quaternion const* q, TQ3Quaternion const* r)
{
    return q->w * r->w + q->x * r->x + q->y * r->y + q->z * r->z;
}

void Q3Quaternion_Multiply(TQ3Quaternion const* q, TQ3Quaternion const* r, TQ3Quaternion* out)
{
    *out = {r->w * q->w - q->x * r->x - q->y * r->y - r->z * q->z,
            q->x * r->w + r->x * q->w + r->y * q->z - q->y * r->z,
            q->y * r->w + r->y * q->w + q->x * r->z - r->x * q->z,
            r->w * q->z + r->z * q->w + r->x * q->y - r->y * q->x};
}

TQ3Quaternion* Q3Quaternion_Normalize(TQ3Quaternion const* q, TQ3Quaternion* out)
{
    float const squaredNorm = Q3Quaternion_Dot(q, q);
    bool const isUnit = kOneMinusEpsilon < squaredNorm && squaredNorm < kOnePlusEpsilon;
    *out = (squaredNorm < kQ3Epsilon || isUnit)
               ? *q
               : Scaled(*q, 1.0 / std::sqrt(static_cast<double>(squaredNorm)));
    return out;
}

TQ3Quaternion* Q3Quaternion_SetRotateAboutAxis(TQ3Quaternion* out, TQ3Vector3D const* axis, float angle)
{
    float const half = angle / 2.0F;
    float const sine = std::sin(half);
    *out = {std::cos(half), sine * axis->x, sine * axis->y, sine * axis->z};
    return out;
}

TQ3Quaternion* Q3Quaternion_SetRotateVectorToVector(TQ3Quaternion* out, TQ3Vector3D const* from,
                                                    TQ3Vector3D const* to)
{
    TQ3Vector3D half;
    Vector3D_Add(from, to, &half);
    if (Vector3D_GetLengthSquared(&half) == 0.0F)
    {
        half = Perpendicular(*to);
    }
    else
    {
        Vector3D_Normalize(&half, &half);
    }
    TQ3Vector3D axis;
    Vector3D_Cross(&half, to, &axis);
    *out = {Vector3D_Dot(&half, to), axis.x, axis.y, axis.z};
    return out;
}

TQ3Quaternion* Q3Quaternion_InterpolateLinear(TQ3Quaternion const* q, TQ3Quaternion const* r, float t,
                                              TQ3Quaternion* out)
{
    float const cosine = Q3Quaternion_Dot(q, r);
    if (!(-kOneMinusEpsilon < cosine && cosine < kOneMinusEpsilon))
    {
        *out = t <= 0.5F ? *q : *r;
        return out;
    }
    float const theta = std::acos(cosine);
    float const scale = 1.0F / std::sin(theta);
    float const a = std::sin((1.0F - t) * theta) * scale;
    float const b = std::sin(t * theta) * scale;
    *out = {a * q->w + b * r->w, a * q->x + b * r->x, a * q->y + b * r->y, a * q->z + b * r->z};
    return out;
}

TQ3Quaternion* Q3Quaternion_InterpolateFast(TQ3Quaternion const* q, TQ3Quaternion const* r, float t,
                                            TQ3Quaternion* out)
{
    *out = {q->w + (r->w - q->w) * t, q->x + (r->x - q->x) * t, q->y + (r->y - q->y) * t,
            q->z + (r->z - q->z) * t};
    return Q3Quaternion_Normalize(out, out);
}

TQ3Matrix4x4* Q3Matrix4x4_SetIdentity(TQ3Matrix4x4* m)
{
    *m = {{{1.0F, 0.0F, 0.0F, 0.0F},
           {0.0F, 1.0F, 0.0F, 0.0F},
           {0.0F, 0.0F, 1.0F, 0.0F},
           {0.0F, 0.0F, 0.0F, 1.0F}}};
    return m;
}

void Q3Matrix4x4_SetQuaternion(TQ3Matrix4x4* m, TQ3Quaternion const* q)
{
    float const x2 = 2.0F * q->x;
    float const y2 = 2.0F * q->y;
    float const z2 = 2.0F * q->z;
    *m = {{{1.0F - q->y * y2 - q->z * z2, q->x * y2 + q->w * z2, q->x * z2 - q->w * y2, 0.0F},
           {q->x * y2 - q->w * z2, 1.0F - q->x * x2 - q->z * z2, q->y * z2 + q->w * x2, 0.0F},
           {q->x * z2 + q->w * y2, q->y * z2 - q->w * x2, 1.0F - q->x * x2 - q->y * y2, 0.0F},
           {0.0F, 0.0F, 0.0F, 1.0F}}};
}

void TQ3Test()
{
    TQ3Vector3D const x{1.0F, 0.0F, 0.0F};
    TQ3Vector3D const others[] = {{0.0F, 1.0F, 0.0F}, {0.0F, 0.70710677F, -0.70710677F}, {0.0F, 0.0F, -1.0F}};
    TQ3Vector3D product;
    for (TQ3Vector3D const& other : others)
    {
        Vector3D_Cross(&x, &other, &product);
    }
}
