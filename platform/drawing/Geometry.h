#pragma once

#include <cmath>

// Coordinates are drawing units, directions have no unit. Plain values: no tolerance, exact comparison.
struct OdGePoint2d {
    double x = 0, y = 0;
    friend bool operator==(const OdGePoint2d&, const OdGePoint2d&) = default;
};

struct OdGeVector2d {
    double x = 0, y = 0;
    double length() const { return std::hypot(x, y); }
    friend bool operator==(const OdGeVector2d&, const OdGeVector2d&) = default;
};

struct OdGeVector3d {
    double x = 0, y = 0, z = 0;
    double length() const { return std::hypot(x, y, z); }
    friend bool operator==(const OdGeVector3d&, const OdGeVector3d&) = default;
};

struct OdGePoint3d {
    double x = 0, y = 0, z = 0;
    friend bool operator==(const OdGePoint3d&, const OdGePoint3d&) = default;
};

inline OdGeVector2d operator-(OdGePoint2d a, OdGePoint2d b) { return {a.x - b.x, a.y - b.y}; }
inline OdGePoint2d operator+(OdGePoint2d a, OdGeVector2d b) { return {a.x + b.x, a.y + b.y}; }
inline OdGeVector3d operator-(const OdGePoint3d& a, const OdGePoint3d& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline OdGePoint3d operator+(const OdGePoint3d& a, const OdGeVector3d& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
