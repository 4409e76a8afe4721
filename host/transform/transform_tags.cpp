// One engine over the table of fields.
#include "host/transform/transform_tags.h"

#include <cmath>
#include <vector>

#include "host/geometry/angles.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// Maps one entity: most fields where they stand, the paired ones behind them.
class Mapper {
  public:
    Mapper(TagEdit& edit, const TransformRule& rule, const ObjectFrame& frame)
        : m_edit(edit), m_rule(rule), m_frame(frame) {}

    void run() {
        std::vector<bool> present(m_rule.count, false);
        std::string_view subclass;
        for (std::size_t at = 0; at < m_edit.size(); ++at) {
            if (m_edit.code(at) == 100) subclass = trimmed(m_edit.value(at));
            if (!m_edit.own(at)) continue;
            const FieldRule* field = m_rule.find(m_edit.code(at), subclass);
            if (field == nullptr) continue;
            present[field - m_rule.fields] = true;
            map(at, field->role);
        }
        for (std::size_t i = 0; i < m_rule.count; ++i) {
            const FieldRule& field = m_rule.fields[i];
            if (field.addTo != nullptr && !present[i]) addMissing(field);
            if (field.role == Role::Chain) mapChain(field.code);
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
            case Role::XDirection:
                if (m_edit.find(m_edit.code(at)) == at)
                    m_edit.setPoint(at, world.turn(m_edit.point(at)));
                return;
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
            case Role::Handed:
                if (m_frame.world().mirrors) m_edit.set(at, integer(at) == 0 ? 1 : 0);
                return;
            case Role::DirectionAngle:
                return mapDirection(m_edit.real(at), at);
            case Role::Chain:
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
            case Role::BackDegrees:
                return m_frame.reverses() ? std::fmod(m_frame.turnDegrees(value) + 180.0, 360.0)
                                          : value;
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
        if (m_frame.reverses()) m_edit.set(at, integer(at) ^ kUpsideDown);
    }

    int integer(std::size_t at) const {
        const auto value = parseInteger(m_edit.value(at));
        return value && *value >= 0 && *value <= INT16_MAX ? static_cast<int>(*value) : 0;
    }

    /// Each point takes the place of the one as far from the other end.
    void mapChain(int code) {
        std::vector<std::size_t> places;
        for (std::size_t at = 0; at < m_edit.size(); ++at)
            if (m_edit.own(at) && m_edit.code(at) == code) places.push_back(at);
        for (std::size_t i = 0; i < places.size(); ++i) {
            const std::size_t from = m_frame.world().mirrors ? places.size() - 1 - i : i;
            m_edit.setPoint(places[i], m_frame.world().matrix.apply(m_edit.point(places[from])));
        }
    }

    /// The direction 11 says the same as the angle and does not depend on the object's axes.
    void mapDirection(double angle, std::optional<std::size_t> place) {
        if (!m_frame.world().mirrors || m_edit.find(11)) return;
        const Vec old = m_frame.system().turn(paragraphDirection(angle));
        const Vec direction = m_frame.world().matrix.turn(old);
        std::string tags;
        addPointTag(tags, 11, direction.x, direction.y, direction.z);
        if (!place) return addToPart(m_edit, "AcDbMText", tags);
        m_edit.addBehind(*place, tags);
        m_edit.remove(*place);
    }

    void addMissing(const FieldRule& field) {
        std::string tag;
        if (field.role == Role::DirectionAngle) return mapDirection(field.absent, std::nullopt);
        if (field.role == Role::UpsideDown) {
            if (m_frame.reverses()) addTag(tag, field.code, 4);
        } else if (field.role == Role::Extrusion) {
            const Vec made = m_frame.extrusion({0, 0, 1}) + Vec{};  // never -0
            if (made.z < 1) addPointTag(tag, field.code, made.x, made.y, made.z);
        } else if (field.role == Role::XDirection) {
            const Vec made = m_frame.world().matrix.turn({1, 0, 0});
            if (made.x < 1) addPointTag(tag, field.code, made.x, made.y, made.z);
        } else {
            const double value = number(field.role, field.absent);
            if (value != field.absent) addTag(tag, field.code, value);
        }
        if (field.role == Role::Height && !tag.empty()) {
            // Readers take the corners that follow at the height that they know by then.
            const auto corner = m_edit.find(10);
            if (corner && *corner > 0) return m_edit.addBehind(*corner - 1, tag);
        }
        if (!tag.empty()) addToPart(m_edit, field.addTo, tag);
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
        const double mapped =
            wrapped(beginRole == Role::Begin ? m_frame.turnDegrees(to) : -to, turn);
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

}  // namespace host
