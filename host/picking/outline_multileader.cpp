// Multileaders: what a tag means depends on the braces in which it stands.
#include <algorithm>

#include "host/content/multileader_parts.h"
#include "host/picking/outline.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// What the tags of a multileader say of its form.
struct LeaderForm {
    bool any = false;       ///< there is context data
    bool strokes = true;    ///< its lines are seen
    bool plainHead = true;  ///< their heads are the usual filled ones
    double headSize = 0;
    struct Leader {
        Vec landing, dogleg;
        double doglegLength = 0;
        std::vector<std::vector<Vec>> lines;
    };
    std::vector<Leader> leaders;
    std::wstring text;
    Vec textAt, textDirection{1, 0, 0};
    double textHeight = 0, textWidth = 0;
    int alignment = 1;  ///< 1 left, 2 centre, 3 right
    std::uint64_t block = 0;
    std::vector<double> matrix;  ///< from the block to the drawing, row by row
};

class LeaderReader {
  public:
    LeaderReader(const Shape& shape) : m_shape(shape), m_tags(shape.tags.tags()) {}

    LeaderForm read() {
        for (m_at = 0; m_at < m_tags.size(); ++m_at) {
            if (!switchPart()) take(m_tags[m_at].code);
        }
        return std::move(m_form);
    }

  private:
    bool switchPart() {
        const auto part = partBehind(m_part, m_tags[m_at].code, m_tags[m_at].value);
        if (!part) return false;
        if (m_part == LeaderPart::Context && *part == LeaderPart::Leader)
            m_form.leaders.emplace_back();
        if (*part == LeaderPart::Line) m_form.leaders.back().lines.emplace_back();
        m_part = *part;
        return m_form.any = true;
    }

    void take(int code) {
        if (m_part == LeaderPart::Context) return takeContent(code);
        if (m_part == LeaderPart::Line && code == 10)
            m_form.leaders.back().lines.back().push_back(point());
        if (m_part == LeaderPart::Leader) {
            LeaderForm::Leader& leader = m_form.leaders.back();
            if (code == 10) leader.landing = point();
            if (code == 11) leader.dogleg = point();
            if (code == 40) leader.doglegLength = real();
        }
        if (m_part != LeaderPart::Outside) return;
        if (code == 170) m_form.strokes = integerOf(m_tags[m_at].value) != 0;
        if (code == 342) m_form.plainHead = handle() == 0;
    }

    void takeContent(int code) {
        if (code == 140) m_form.headSize = real();
        if (code == 304) m_form.text = m_shape.store.decode(m_tags[m_at].value);
        if (code == 12) m_form.textAt = point();
        if (code == 13) m_form.textDirection = point();
        if (code == 41) m_form.textHeight = real();
        if (code == 43) m_form.textWidth = real();
        if (code == 171) m_form.alignment = integerOf(m_tags[m_at].value, 1);
        if (code == 341) m_form.block = handle();
        if (code == 47) m_form.matrix.push_back(real());
    }

    double real() const { return realOf(m_tags[m_at].value); }
    std::uint64_t handle() const { return parseHandle(m_tags[m_at].value).value_or(0); }
    Vec point() const {
        const auto next = [&](std::size_t offset) {
            const std::size_t at = m_at + offset;
            const bool here = at < m_tags.size() &&
                              m_tags[at].code == m_tags[m_at].code + 10 * static_cast<int>(offset);
            return here ? realOf(m_tags[at].value) : 0.0;
        };
        return {real(), next(1), next(2)};
    }

    const Shape& m_shape;
    const std::vector<Tag>& m_tags;
    LeaderForm m_form;
    LeaderPart m_part = LeaderPart::Outside;
    std::size_t m_at = 0;
};

void drawHead(const Pen& pen, const Vec& tip, const Vec& next, double size) {
    const Vec way = next - tip;
    const double distance = flatLength(way);
    if (!(distance > 0) || !(size > 0)) return;
    const Vec back = way * (size / distance), side = leftOf(back) * (1.0 / 6);
    pen.area({tip, tip + back + side, tip + back - side});
}

}  // namespace

bool drawMultileader(const Shape& shape) {
    const LeaderForm form = LeaderReader(shape).read();
    for (const LeaderForm::Leader& leader : form.leaders) {
        if (!form.strokes) break;
        for (std::vector<Vec> line : leader.lines) {
            line.push_back(leader.landing);
            shape.pen.path(line, false);
            if (form.plainHead && line.size() > 1)
                drawHead(shape.pen, line[0], line[1], form.headSize);
        }
        if (leader.doglegLength > 0)
            shape.pen.line(leader.landing, leader.landing + leader.dogleg * leader.doglegLength);
    }
    if (!form.text.empty())
        drawParagraphs(shape.pen, {form.text, form.textAt, form.textDirection, form.textHeight,
                                   form.textWidth, std::clamp(form.alignment, 1, 3) - 1});
    return form.any;
}

PlacedBlock blockOfMultileader(const Shape& shape) {
    const LeaderForm form = LeaderReader(shape).read();
    const ObjectBody* record = form.block != 0 ? shape.store.byHandle(form.block) : nullptr;
    if (record == nullptr || record->kind != Kind::BlockRecord || form.matrix.size() != 16)
        return {};
    const std::vector<double>& m = form.matrix;
    Transform place;
    place.x = {m[0], m[4], m[8]};
    place.y = {m[1], m[5], m[9]};
    place.z = {m[2], m[6], m[10]};
    place.origin = {m[3], m[7], m[11]};
    return {record, place};
}

}  // namespace host
