// Each line of a pattern is inside the boundary between its first crossing with that and its
// second, its third and its fourth, and so on.
#include "picture/hatching.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace picture {
namespace {

using host::Line;
using host::PatternLines;
using host::Vec;

constexpr long long kMostInOneHatch = 20000;

/// Strokes between two marks as straight edges.
std::vector<Line> edgesOf(const host::Outline& outline, const host::OutlineMark& from,
                          const host::OutlineMark& end) {
    constexpr double kStep = 0.05;  // radians
    std::vector<Line> edges(outline.lines.begin() + static_cast<std::ptrdiff_t>(from.lines),
                            outline.lines.begin() + static_cast<std::ptrdiff_t>(end.lines));
    for (std::size_t i = from.arcs; i < end.arcs; ++i) {
        const host::Arc& arc = outline.arcs[i];
        const int steps = std::max(1, static_cast<int>(std::ceil(arc.sweep / kStep)));
        Vec last;
        for (int k = 0; k <= steps; ++k) {
            const Vec next = arc.at(arc.from + arc.sweep * k / steps);
            if (k > 0) edges.push_back({last, next});
            last = next;
        }
    }
    return edges;
}

/// One family of lines and where they cross the edges.
class Family {
  public:
    Family(const PatternLines& lines, double pixel, long long& work)
        : m_lines(lines), m_pixel(pixel), m_work(work) {
        const Vec normal = leftOf(lines.along);
        m_distance = dot(lines.step, normal);
        m_normal = normal * (1 / m_distance);
        for (const double dash : lines.dashes)
            m_period += std::fabs(dash);
    }
    bool tooDense() const { return !(std::fabs(m_distance) > 2 * m_pixel); }

    /// The strokes inside; false when there are more than `most`.
    bool cut(const std::vector<Line>& edges, long long most, std::vector<Line>& strokes) {
        if (!cross(edges, most)) return false;
        for (std::size_t i = 0; i < m_crossings.size(); ++i) {
            if (!dash(m_first + static_cast<long long>(i), m_crossings[i], most, strokes))
                return false;
        }
        return true;
    }

  private:
    /// Number of the line through a point. What is as good as on a line is, so that edges which
    /// meet there agree.
    double across(const Vec& p) const {
        constexpr double kSame = 1e-7;
        const double s = dot(p - m_lines.base, m_normal), whole = std::round(s);
        return std::fabs(s - whole) < kSame ? whole : s;
    }

    bool cross(const std::vector<Line>& edges, long long most) {
        double low = 1e300, high = -1e300;
        for (const Line& edge : edges) {
            for (const double s : {across(edge.a), across(edge.b)}) {
                low = std::min(low, s);
                high = std::max(high, s);
            }
        }
        if (!(high - low < static_cast<double>(most)) || std::fabs(low) > 1e15)
            return edges.empty();
        m_first = static_cast<long long>(std::ceil(low));
        m_crossings.resize(static_cast<std::size_t>(std::max(0.0, high - std::ceil(low)) + 1));
        for (const Line& edge : edges) {
            const double a = across(edge.a), b = across(edge.b);
            // With its lower end and without its upper one, so that corners count once.
            for (double k = std::ceil(std::min(a, b)); k < std::max(a, b); ++k) {
                const Vec at = edge.a + (edge.b - edge.a) * ((k - a) / (b - a));
                const std::size_t place =
                    static_cast<std::size_t>(static_cast<long long>(k) - m_first);
                if (place >= m_crossings.size() || --m_work < 0) return false;
                m_crossings[place].push_back(dot(at - origin(k), m_lines.along));
            }
        }
        return true;
    }

    Vec origin(double number) const { return m_lines.base + m_lines.step * number; }

    bool dash(long long number, std::vector<double>& places, long long most,
              std::vector<Line>& strokes) {
        const Vec begin = origin(static_cast<double>(number));
        const auto draw = [&](double from, double to) {
            if (static_cast<long long>(strokes.size()) >= most) return false;
            strokes.push_back({begin + m_lines.along * from, begin + m_lines.along * to});
            return true;
        };
        std::sort(places.begin(), places.end());
        for (std::size_t i = 0; i + 1 < places.size(); i += 2) {
            const double from = places[i], to = places[i + 1];
            if (!(m_period > 2 * m_pixel)) {
                if (!draw(from, to)) return false;
                continue;
            }
            const double first = std::floor(from / m_period), last = std::ceil(to / m_period);
            if (!(last - first <= static_cast<double>(most))) return false;
            for (double period = first; period < last; ++period) {
                double at = period * m_period;
                for (const double length : m_lines.dashes) {
                    const double shown = length == 0 ? m_pixel : length;
                    const double a = std::max(at, from), b = std::min(at + shown, to);
                    if (--m_work < 0 || (length >= 0 && a < b && !draw(a, b))) return false;
                    at += std::fabs(length);
                }
            }
        }
        return true;
    }

    const PatternLines& m_lines;
    double m_pixel;
    long long& m_work;
    double m_distance = 0, m_period = 0;
    Vec m_normal;                                  ///< grows by 1 from a line to the next
    long long m_first = 0;                         ///< number of the first line that crosses
    std::vector<std::vector<double>> m_crossings;  ///< along each line from there on
};

}  // namespace

bool Hatching::add(PathData& path, const host::Outline& outline, const host::OutlineMark& from,
                   const host::OutlineMark& end, double pixel) {
    if (from.patterns == end.patterns || m_work < 0) return false;
    const std::vector<Line> edges = edgesOf(outline, from, end);
    m_work -= static_cast<long long>(edges.size() * (end.patterns - from.patterns));
    if (m_work < 0) return false;
    std::vector<Line> strokes;
    for (std::size_t i = from.patterns; i < end.patterns; ++i) {
        Family family(outline.patterns[i], pixel, m_work);
        const long long most = std::min(m_left, kMostInOneHatch);
        if (family.tooDense() || !family.cut(edges, most, strokes)) return false;
    }
    m_left -= static_cast<long long>(strokes.size());
    for (const Line& stroke : strokes)
        path.line(stroke);
    return true;
}

}  // namespace picture
