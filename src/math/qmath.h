// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Vectors, quaternions and matrices: plain values in single precision, and free routines over them.
// A result pointer may be the same object as an input.
// Rotations are right-handed: a positive angle about +z turns the x axis towards the y axis.
#pragma once

// A point, a direction or an axis.
struct TQ3Vector3D
{
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

// Scalar part first.
struct TQ3Quaternion
{
    float w = 1.0F;
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

// Four rows of four, row after row; a point is a row multiplied on the left. In this order the sixteen floats
// are what glMultMatrixf expects.
struct TQ3Matrix4x4
{
    float value[4][4] = {};
};

// Single-precision machine epsilon, 2^-23: shorter vectors are not normalised.
constexpr float kQ3Epsilon = 1.1920929e-07F;

TQ3Vector3D* Vector3D_Add(TQ3Vector3D const* a, TQ3Vector3D const* b, TQ3Vector3D* out);
void Vector3D_Subtract(TQ3Vector3D const* a, TQ3Vector3D const* b, TQ3Vector3D* out);
void Vector3D_Scale(TQ3Vector3D const* a, float s, TQ3Vector3D* out);
float Vector3D_Dot(TQ3Vector3D const* a, TQ3Vector3D const* b);
TQ3Vector3D* Vector3D_Cross(TQ3Vector3D const* a, TQ3Vector3D const* b, TQ3Vector3D* out);
float Vector3D_GetLengthSquared(TQ3Vector3D const* a);

// A vector shorter than kQ3Epsilon is copied unchanged, and its length stored as 0.
TQ3Vector3D* Vector3D_Normalize(TQ3Vector3D const* a, TQ3Vector3D* out);
TQ3Vector3D* Vector3D_Normalize(TQ3Vector3D const* a, TQ3Vector3D* out, float* length);

// Each component's remainder by n, with the component's sign. The quotients must fit an int.
TQ3Vector3D* Vector3D_Mod(TQ3Vector3D const* a, int n, TQ3Vector3D* out);

// The vector part of q * (0, v) * conj(q): for a unit quaternion the rotation of v about the origin.
void Q3Vector3D_TransformQuaternion(TQ3Vector3D const* v, TQ3Quaternion const* q, TQ3Vector3D* out);
TQ3Vector3D* Q3Point3D_TransformQuaternion(TQ3Vector3D const* p, TQ3Quaternion const* q, TQ3Vector3D* out);

void Q3Quaternion_SetIdentity(TQ3Quaternion* out);

// The conjugate: the inverse of a unit quaternion, which is all that the game inverts.
void Q3Quaternion_Invert(TQ3Quaternion const* q, TQ3Quaternion* out);

float Q3Quaternion_Dot(TQ3Quaternion const* q, TQ3Quaternion const* r);

// The rotation first q, then r: the Hamilton product r * q.
void Q3Quaternion_Multiply(TQ3Quaternion const* q, TQ3Quaternion const* r, TQ3Quaternion* out);

// Copies q unchanged when its squared norm is below kQ3Epsilon or within it of 1.
TQ3Quaternion* Q3Quaternion_Normalize(TQ3Quaternion const* q, TQ3Quaternion* out);

// axis: used as given, so a unit vector; angle: radians.
TQ3Quaternion* Q3Quaternion_SetRotateAboutAxis(TQ3Quaternion* out, TQ3Vector3D const* axis, float angle);

// The shortest rotation that takes one unit vector to another; a half turn for exactly opposite ones.
TQ3Quaternion* Q3Quaternion_SetRotateVectorToVector(TQ3Quaternion* out, TQ3Vector3D const* from,
                                                    TQ3Vector3D const* to);

// Spherical interpolation, despite the name, without a flip to the shorter arc. Nearly equal or nearly
// opposite quaternions snap to the nearer end, q up to and including t = 0.5.
TQ3Quaternion* Q3Quaternion_InterpolateLinear(TQ3Quaternion const* q, TQ3Quaternion const* r, float t,
                                              TQ3Quaternion* out);

// Interpolates each component, then normalises.
TQ3Quaternion* Q3Quaternion_InterpolateFast(TQ3Quaternion const* q, TQ3Quaternion const* r, float t,
                                            TQ3Quaternion* out);

TQ3Matrix4x4* Q3Matrix4x4_SetIdentity(TQ3Matrix4x4* m);
void Q3Matrix4x4_SetQuaternion(TQ3Matrix4x4* m, TQ3Quaternion const* q);

// A hook for a debugger: forms three cross products and discards them.
void TQ3Test();
