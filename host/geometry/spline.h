// Points along spline curves.
#pragma once

#include <vector>

#include "host/geometry/affine.h"

namespace host {

/// A spline as drawings state it: weights may be missing.
struct Spline {
    int degree = 3;
    std::vector<Vec> poles;  ///< control points
    std::vector<double> knots, weights;
};

/// True when the numbers fit together and rise, so that they are a curve.
bool isCurve(const Spline& spline);
/// A smooth curve through points, at least two; which one drawings do not state.
Spline splineThrough(const std::vector<Vec>& points, bool closed);
/// Points close enough to draw the curve through; the poles of what is none.
std::vector<Vec> pointsAlong(const Spline& spline);

}  // namespace host
