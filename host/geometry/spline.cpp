// Evaluates splines span by span.
#include "host/geometry/spline.h"

#include <algorithm>

namespace host {
namespace {

constexpr int kHighestDegree = 11;

/// A pole times its weight, and the weight.
struct Weighted {
    Vec point;
    double weight;
};

Weighted mixed(const Weighted& a, const Weighted& b, double t) {
    return {a.point * (1 - t) + b.point * t, a.weight * (1 - t) + b.weight * t};
}

/// The point at a parameter in the span that begins at a knot, by repeated interpolation.
Vec pointAt(const Spline& spline, std::size_t span, double t) {
    const std::size_t degree = static_cast<std::size_t>(spline.degree);
    Weighted row[kHighestDegree + 1];
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t pole = span - degree + i;
        const double weight = spline.weights.empty() ? 1 : spline.weights[pole];
        row[i] = {spline.poles[pole] * weight, weight};
    }
    for (std::size_t round = 1; round <= degree; ++round) {
        for (std::size_t i = degree; i >= round; --i) {
            const double from = spline.knots[span - degree + i];
            const double to = spline.knots[span + 1 + i - round];
            row[i] = mixed(row[i - 1], row[i], (t - from) / (to - from));
        }
    }
    return row[degree].point * (1 / row[degree].weight);
}

}  // namespace

bool isCurve(const Spline& spline) {
    const auto isPositive = [](double weight) { return weight > 0; };
    return spline.degree >= 1 && spline.degree <= kHighestDegree &&
           spline.poles.size() > static_cast<std::size_t>(spline.degree) &&
           spline.knots.size() ==
               spline.poles.size() + static_cast<std::size_t>(spline.degree) + 1 &&
           std::is_sorted(spline.knots.begin(), spline.knots.end()) &&
           (spline.weights.empty() || spline.weights.size() == spline.poles.size()) &&
           std::all_of(spline.weights.begin(), spline.weights.end(), isPositive);
}

Spline splineThrough(const std::vector<Vec>& points, bool closed) {
    const std::size_t count = points.size(), spans = closed ? count : count - 1;
    const auto at = [&](std::size_t i) { return points[i % count]; };
    /// A third of the way that the curve goes at a point in the time of a span.
    const auto third = [&](std::size_t i) {
        const bool first = i == 0 && !closed, last = i == count - 1 && !closed;
        const Vec way = at(last ? i : i + 1) - at(first ? i : i + count - 1);
        return way * (first || last ? 1.0 / 3 : 1.0 / 6);
    };
    Spline spline{3, {at(0)}, {0, 0, 0, 0}, {}};
    for (std::size_t i = 0; i < spans; ++i) {
        for (const Vec& pole : {at(i) + third(i), at(i + 1) - third(i + 1), at(i + 1)})
            spline.poles.push_back(pole);
        spline.knots.insert(spline.knots.end(), 3, static_cast<double>(i + 1));
    }
    spline.knots.push_back(static_cast<double>(spans));
    return spline;
}

std::vector<Vec> pointsAlong(const Spline& spline) {
    if (!isCurve(spline)) return spline.poles;
    const int steps = spline.degree == 1 ? 1 : 12;  // in each span
    std::vector<Vec> points;
    std::size_t last = 0;
    for (std::size_t span = static_cast<std::size_t>(spline.degree); span < spline.poles.size();
         ++span) {
        const double from = spline.knots[span], to = spline.knots[span + 1];
        if (!(to > from)) continue;
        for (int i = 0; i < steps; ++i)
            points.push_back(pointAt(spline, span, from + (to - from) * i / steps));
        last = span;
    }
    if (points.empty()) return spline.poles;
    points.push_back(pointAt(spline, last, spline.knots[last + 1]));
    return points;
}

}  // namespace host
