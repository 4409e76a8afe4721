// Points, scales and tolerances of the geometry interface.
#pragma once

#include "adesk_types.h"

/// Tolerance of geometric comparisons, in drawing units. Defaults of 1e-10 are assumed.
class AcGeTol {
  public:
    double equalPoint() const { return m_equalPoint; }
    void setEqualPoint(double tolerance) { m_equalPoint = tolerance; }

  private:
    double m_equalPoint = 1e-10;
};

/// Point in drawing units.
class AcGePoint3d {
  public:
    AcGePoint3d() = default;
    AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    /// The point (0, 0, 0).
    static const AcGePoint3d kOrigin;

    AcGePoint3d& set(double xx, double yy, double zz) {
        x = xx;
        y = yy;
        z = zz;
        return *this;
    }
    /// Distance to `other`, in drawing units.
    double distanceTo(const AcGePoint3d& other) const;
    /// True when the distance is at most `tol.equalPoint()`. Assumed; the boundary is chosen.
    bool isEqualTo(const AcGePoint3d& other, const AcGeTol& tol = AcGeTol()) const;
    bool operator==(const AcGePoint3d& other) const { return isEqualTo(other); }
    bool operator!=(const AcGePoint3d& other) const { return !isEqualTo(other); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

/// Scale factors along X, Y and Z.
class AcGeScale3d {
  public:
    AcGeScale3d() = default;
    explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    AcGeScale3d(double xFactor, double yFactor, double zFactor)
        : sx(xFactor), sy(yFactor), sz(zFactor) {}

    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
};

/// The point's coordinates as an ads_point; borrowed from `point`. Documented by example.
inline double* asDblArray(AcGePoint3d& point) { return &point.x; }
inline const double* asDblArray(const AcGePoint3d& point) { return &point.x; }
/// The reverse view of asDblArray. Documented by example.
inline AcGePoint3d asPnt3d(const double* point) { return {point[0], point[1], point[2]}; }
