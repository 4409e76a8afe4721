// One engine over the table of fields.
#include "host/transform/transform_tags.h"
#include "host/geometry/angles.h"

#include <cmath>

#include "host/tags/tags.h"

namespace host {
namespace {

/// Adds a tag behind the last own tag of a subclass part, or of the whole entity.
void addTo(TagEdit& edit, std::string_view subclass, const std::string& tags) {
    std::size_t last = edit.size(), inPart = edit.size();
    std::string_view part;
    for (std::size_t at = 0; at < edit.size(); ++at) {
        if (edit.code(at) == 100) {
            // A name that comes twice counts the first time: TEXT has two parts of one name.
            if (inPart != edit.size() && part == subclass) break;
            part = trimmed(edit.value(at));
        }
        if (!edit.own(at) && edit.code(at) != 100) continue;
        last = at;
        if (part == subclass) inPart = at;
    }
    const std::size_t place = inPart != edit.size() ? inPart : last;
    if (place != edit.size()) edit.addBehind(place, tags);
}

/// Maps one entity: most fields where they stand, the paired ones behind them.
class Mapper {
  public:
    Mapper(TagEdit& edit, const TransformRule& rule, const ObjectFrame& frame)
        : m_edit(edit), m_rule(rule), m_frame(frame) {}

    void run() {
        for (std::size_t at = 0; at < m_edit.size(); ++at) {
            if (!m_edit.own(at)) continue;
            if (const FieldRule* field = m_rule.find(m_edit.code(at))) map(at, field->role);
        }
        for (std::size_t i = 0; i < m_rule.count; ++i) {
            const FieldRule& field = m_rule.fields[i];
            if (field.addTo != nullptr && !m_edit.find(field.code)) addMissing(field);
        }
        if (!m_frame.reverses()) return;
        mapSweep(Role::Begin, Role::End, 360.0);
        mapSweep(Role::BeginParameter, Role::EndParameter, kTurn);
    }

  private:
    void map(std::size_t at, Role role) {
        const Transform& world = m_frame.world().matrix;
        switch (role) {
            case Role::Point:
                return m_edit.setPoint(at, world.apply(m_edit.point(at)));
            case Role::Vector:
                return m_edit.setPoint(at, world.turn(m_edit.point(at)));
            case Role::ObjectPoint:
                return m_edit.setPoint(at, m_frame.apply(m_edit.point(at)));
            case Role::PlanePoint: {
                const Vec to = m_frame.apply(m_edit.point(at));
                return m_edit.setPoint(at, {to.x, to.y, 0});
            }
            case Role::HeightOfPoint: {
                const Vec from = m_edit.point(at);
                return m_edit.setPoint(at, {from.x, from.y, m_frame.apply({0, 0, from.z}).z});
            }
            case Role::Extrusion:
                return m_edit.setPoint(at, m_frame.extrusion(m_edit.point(at)));
            case Role::UpsideDown:
                return mapFlags(at);
            case Role::DirectionAngle:
                return mapDirection(m_edit.real(at), at);
            case Role::Begin:
            case Role::End:
            case Role::BeginParameter:
            case Role::EndParameter:
                return;
            default:
                m_edit.set(at, number(role, m_edit.real(at)));
        }
    }

    /// A field of one number.
    double number(Role role, double value) const {
        switch (role) {
            case Role::Height:
                return m_frame.apply({0, 0, value}).z;
            case Role::Degrees:
                return m_frame.turnDegrees(value);
            case Role::AxisAngle:
                return m_frame.world().mirrors ? -m_frame.turnDegrees(-value) : value;
            case Role::Opposite:
                return m_frame.reverses() ? -value : value;
            default:
                return value;
        }
    }

    void mapFlags(std::size_t at) {
        constexpr int kUpsideDown = 4;
        if (m_frame.reverses()) m_edit.set(at, m_edit.integer(m_edit.code(at), 0) ^ kUpsideDown);
    }

    /// The direction 11 says the same as the angle and does not depend on the object's axes.
    void mapDirection(double angle, std::optional<std::size_t> place) {
        if (!m_frame.world().mirrors || m_edit.find(11)) return;
        const Vec old = m_frame.system().turn(paragraphDirection(angle));
        const Vec direction = m_frame.world().matrix.turn(old);
        std::string tags;
        addPointTag(tags, 11, direction.x, direction.y, direction.z);
        if (!place) return addTo(m_edit, "AcDbMText", tags);
        m_edit.addBehind(*place, tags);
        m_edit.remove(*place);
    }

    void addMissing(const FieldRule& field) {
        std::string tag;
        if (field.role == Role::DirectionAngle) return mapDirection(field.absent, std::nullopt);
        if (field.role == Role::UpsideDown) {
            if (m_frame.reverses()) addTag(tag, field.code, 4);
        } else if (field.role == Role::Extrusion) {
            const Vec made = m_frame.extrusion({0, 0, 1});
            if (made.z < 1) addPointTag(tag, field.code, made.x, made.y, made.z);
        } else {
            const double value = number(field.role, field.absent);
            if (value != field.absent) addTag(tag, field.code, value);
        }
        if (field.role == Role::Height && !tag.empty()) {
            // Readers take the corners that follow at the height that they know by then.
            const auto corner = m_edit.find(10);
            if (corner && *corner > 0) return m_edit.addBehind(*corner - 1, tag);
        }
        if (!tag.empty()) addTo(m_edit, field.addTo, tag);
    }

    std::optional<std::size_t> placeOf(Role role) const {
        for (std::size_t i = 0; i < m_rule.count; ++i) {
            if (m_rule.fields[i].role == role) return m_edit.find(m_rule.fields[i].code);
        }
        return std::nullopt;
    }

    /// Mirrored, the arc begins where it ended. Its length, a whole turn included, stays. Both
    /// missing mean a whole turn, which stays too.
    void mapSweep(Role beginRole, Role endRole, double turn) {
        const auto begin = placeOf(beginRole), end = placeOf(endRole);
        if (!begin || !end) return;
        const double from = m_edit.real(*begin), to = m_edit.real(*end);
        double mapped = -to;
        if (beginRole == Role::Begin) mapped = m_frame.turnDegrees(to);
        mapped = std::fmod(mapped, turn);
        if (mapped < 0) mapped += turn;
        double finish = mapped + (to - from);
        if (finish < 0) finish += turn;
        if (finish > turn && beginRole == Role::Begin) finish -= turn;
        m_edit.set(*begin, mapped);
        m_edit.set(*end, finish);
    }

    TagEdit& m_edit;
    const TransformRule& m_rule;
    const ObjectFrame& m_frame;
};

}  // namespace

void transformTags(TagEdit& edit, const TransformRule& rule, const ObjectFrame& frame) {
    Mapper(edit, rule, frame).run();
}

void transformReadable(TagEdit& edit, const ObjectFrame& frame) {
    const Transform& world = frame.world().matrix;
    constexpr double kLevel = 1e-9;
    const auto place = edit.find(10), axis = edit.find(11), angle = edit.find(50);
    if (place) edit.setPoint(*place, world.apply(edit.point(*place)));
    const Vec old = axis ? edit.point(*axis) : paragraphDirection(angle ? edit.real(*angle) : 0.0);
    Vec direction = world.turn(old);
    if (direction.x < -kLevel || (direction.x < kLevel && direction.y < 0))
        direction = direction * -1;
    if (axis) return edit.setPoint(*axis, direction);
    std::string tags;
    addPointTag(tags, 11, direction.x, direction.y, direction.z);
    addTo(edit, "AcDbMText", tags);
    if (angle) edit.remove(*angle);
}

void transformExtendedData(TagEdit& edit, const RigidMap& map) {
    for (std::size_t at = 0; at < edit.size(); ++at) {
        const int code = edit.code(at);
        if (code == 1011) edit.setPoint(at, map.matrix.apply(edit.point(at)));
        if (code == 1012 || code == 1013) edit.setPoint(at, map.matrix.turn(edit.point(at)));
    }
}

}  // namespace host
