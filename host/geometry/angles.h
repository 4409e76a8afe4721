// Angles: drawings keep most in degrees, geometry and the interface use radians.
#pragma once

namespace host {

constexpr double kHalfTurn = 3.14159265358979323846;
constexpr double kTurn = 2 * kHalfTurn;

constexpr double toRadians(double degrees) { return degrees * kHalfTurn / 180; }
constexpr double toDegrees(double radians) { return radians * 180 / kHalfTurn; }

}  // namespace host
