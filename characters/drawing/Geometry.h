#pragma once
#include <cmath>

// Points and affine maps of the drawing code. Units are pixels of the frame, y grows downwards, angles are degrees and
// grow clockwise on the screen.
namespace drawing {

inline constexpr double Pi = 3.14159265358979323846;

struct Vec {
    double x = 0;
    double y = 0;
};

constexpr Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y}; }
constexpr Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y}; }
constexpr Vec operator*(Vec a, double factor) { return {a.x * factor, a.y * factor}; }
constexpr Vec Mix(Vec a, Vec b, double share) { return a + (b - a) * share; }
inline double Length(Vec a) { return std::hypot(a.x, a.y); }
inline Vec Unit(Vec a) { return Length(a) > 1e-9 ? a * (1 / Length(a)) : Vec{1, 0}; }
inline Vec Direction(double degrees) { return {std::cos(degrees * Pi / 180), std::sin(degrees * Pi / 180)}; }
inline double AngleOf(Vec a) { return std::atan2(a.y, a.x) * 180 / Pi; }

// x' = xx * x + xy * y + x0, y' = yx * x + yy * y + y0.
struct Affine {
    double xx = 1, xy = 0, yx = 0, yy = 1, x0 = 0, y0 = 0;

    static Affine Move(Vec by) { return {1, 0, 0, 1, by.x, by.y}; }
    static Affine Scale(double x, double y) { return {x, 0, 0, y, 0, 0}; }
    static Affine Turn(double degrees)
    {
        const Vec d = Direction(degrees);
        return {d.x, -d.y, d.y, d.x, 0, 0};
    }
    Vec operator()(Vec p) const { return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0}; }
    double MeanScale() const { return std::sqrt(std::fabs(xx * yy - xy * yx)); }
};

// The map that does `inner` first, then `outer`.
inline Affine operator*(const Affine& outer, const Affine& inner)
{
    const Vec origin = outer({inner.x0, inner.y0});
    return {outer.xx * inner.xx + outer.xy * inner.yx,
            outer.xx * inner.xy + outer.xy * inner.yy,
            outer.yx * inner.xx + outer.yy * inner.yx,
            outer.yx * inner.xy + outer.yy * inner.yy,
            origin.x,
            origin.y};
}

}
