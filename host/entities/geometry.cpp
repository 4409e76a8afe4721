// Distances and equality of points.
#include "host/objectarx/geometry.h"

#include <cmath>

const AcGePoint3d AcGePoint3d::kOrigin;

double AcGePoint3d::distanceTo(const AcGePoint3d& other) const {
    return std::hypot(x - other.x, y - other.y, z - other.z);
}

bool AcGePoint3d::isEqualTo(const AcGePoint3d& other, const AcGeTol& tol) const {
    return distanceTo(other) <= tol.equalPoint();
}
