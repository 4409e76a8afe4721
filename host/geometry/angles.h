// Angles: drawings keep most in degrees, geometry and the interface use radians.
#pragma once

#include <cmath>

namespace host {

constexpr double kHalfTurn = 3.14159265358979323846;
constexpr double kTurn = 2 * kHalfTurn;

constexpr double toRadians(double degrees) { return degrees * kHalfTurn / 180; }
constexpr double toDegrees(double radians) { return radians * 180 / kHalfTurn; }

/// The same angle from 0 to a turn, which is 360 or kTurn.
inline double wrapped(double angle, double turn) {
    const double rest = std::fmod(angle, turn);
    return rest < 0 ? rest + turn : rest;
}

}  // namespace host
