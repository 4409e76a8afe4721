// Keeps where the entities of a space are, and tells a page about them.
#include "window/sheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "host/editor/state/current_drawing.h"
#include "host/picking/hit_test.h"
#include "host/picking/outline.h"
#include "picture/scene.h"

namespace window {
namespace {

using host::Box;
using host::Index;
using host::Kind;
using host::Vec;

bool holds(const Box& box, const Vec& point, double radius) {
    return point.x >= box.left - radius && point.x <= box.right + radius &&
           point.y >= box.bottom - radius && point.y <= box.top + radius;
}

/// Units of a path for the whole drawing: hundredths of them are as fine as a canvas draws.
constexpr double kPathUnits = 100000;

picture::View viewOf(const std::optional<Box>& bounds) {
    picture::View view;
    view.box = bounds.value_or(Box{0, 0, 420, 297});
    Box& box = view.box;
    const double far = std::max({std::fabs(box.left), std::fabs(box.right), std::fabs(box.top),
                                 std::fabs(box.bottom), 1e-9});
    const double least = far * 1e-9;
    const double size = std::max({box.right - box.left, box.top - box.bottom, least});
    view.scale = kPathUnits / size;
    // Endless lines end where nobody looks.
    box = {box.left - size, box.bottom - size, box.right + size, box.top + size};
    return view;
}

class NearestPoint {
  public:
    NearestPoint(const Vec& from, double radius) : m_from(from), m_least(radius) {}
    void offer(const Vec& point, const char* kind) {
        const double away = flatLength(point - m_from);
        if (!(away <= m_least)) return;
        m_least = away;
        m_found = Snap{{point.x, point.y, 0}, kind};
    }
    const std::optional<Snap>& found() const { return m_found; }

  private:
    Vec m_from;
    double m_least;
    std::optional<Snap> m_found;
};

void offerPart(NearestPoint& nearest, const host::Outline& outline, const host::OutlineMark& from,
               const host::OutlineMark& end) {
    constexpr double kWhole = 6.283;
    for (std::size_t i = from.lines; i < end.lines; ++i) {
        const host::Line& line = outline.lines[i];
        nearest.offer(line.a, "end");
        if (line.endlessB) continue;
        nearest.offer(line.b, "end");
        nearest.offer((line.a + line.b) * 0.5, "middle");
    }
    for (std::size_t i = from.arcs; i < end.arcs; ++i) {
        const host::Arc& arc = outline.arcs[i];
        nearest.offer(arc.centre, "centre");
        if (arc.sweep > kWhole) continue;
        nearest.offer(arc.at(arc.from), "end");
        nearest.offer(arc.at(arc.from + arc.sweep), "end");
        nearest.offer(arc.at(arc.from + arc.sweep / 2), "middle");
    }
}

}  // namespace

Sheet::Sheet(const host::Store& store, Index space)
    : m_store(store), m_space(space), m_known(store.count()) {}

void Sheet::remember(const picture::Scene& scene, const picture::Shown& shown) {
    Reach& reach = m_reach[shown.entity->self];
    reach.shown = reach.met = shown.bounds;
    const host::OutlineMark from = scene.parts[shown.firstPart].from;
    const host::OutlineMark end = scene.endOf(shown.lastPart - 1);
    std::optional<Box> met = shown.bounds;
    for (std::size_t i = from.arcs; i < end.arcs; ++i)
        extend(met, scene.outline.arcs[i].centre);
    reach.met = *met;
    constexpr double kEverywhere = std::numeric_limits<double>::infinity();
    for (std::size_t i = from.lines; i < end.lines; ++i) {
        const host::Line& line = scene.outline.lines[i];
        if (line.endlessA || line.endlessB)
            reach.met = {-kEverywhere, -kEverywhere, kEverywhere, kEverywhere};
    }
}

json::Object Sheet::all() {
    const picture::Scene scene = picture::readScene(m_store, m_space);
    m_known = m_store.count();
    m_view = viewOf(scene.bounds);
    m_styles = {};
    m_reach.assign(m_known + 1, {});
    std::string entities;
    entities.reserve(scene.shown.size() * 100);
    SheetWriter writer(m_store, scene, m_view, m_styles);
    for (const picture::Shown& shown : scene.shown) {
        if (!entities.empty()) entities += ",\n";
        writer.write(entities, shown);
        remember(scene, shown);
    }
    const Box box = scene.bounds.value_or(Box{0, 0, 420, 297});
    return {{"space", m_space},
            {"scale", m_view.scale},
            {"left", m_view.box.left},
            {"top", m_view.box.top},
            {"box", json::Value::list(std::array{box.left, box.bottom, box.right, box.top})},
            {"styles", json::Value::ofText(m_styles.listFrom(0))},
            {"entities", json::Value::ofText('[' + entities + ']')}};
}

/// Slots of records and of blocks change how entities look that stay as they are. What is new is
/// referred to by nothing that stood before.
Sheet::Change Sheet::changeOf(Index slot, Index& entity) const {
    host::ObjectBody& body = m_store.at(slot);
    const bool isNew = slot > m_known;
    switch (body.kind) {
        case Kind::LayerRecord:
        case Kind::LinetypeRecord:
        case Kind::OtherRecord:
            return isNew ? Change::None : Change::Everything;
        default:
            break;
    }
    if (!host::isEntityKind(body.kind)) return Change::None;
    const host::ObjectBody* main = host::mainEntityOf(body);
    const host::ObjectBody* owner = main != nullptr ? &m_store.at(main->owner) : nullptr;
    if (owner == nullptr) return Change::None;
    if (!host::isSpace(*owner)) return isNew ? Change::None : Change::Everything;
    if (main->owner != m_space) return Change::None;
    entity = main->self;
    return Change::Entity;
}

std::optional<json::Object> Sheet::changes(const std::vector<Index>& slots) {
    std::vector<Index> entities;
    for (const Index slot : slots) {
        Index entity = host::kNoIndex;
        const Change change = changeOf(slot, entity);
        if (change == Change::Everything) return std::nullopt;
        if (change == Change::Entity) entities.push_back(entity);
    }
    std::sort(entities.begin(), entities.end());
    entities.erase(std::unique(entities.begin(), entities.end()), entities.end());
    m_known = m_store.count();
    m_reach.resize(m_known + 1);
    std::vector<const host::ObjectBody*> live;
    for (const Index slot : entities) {
        const host::ObjectBody& body = m_store.at(slot);
        if (!body.erased && !body.undone) live.push_back(&body);
    }
    const picture::Scene scene = picture::readScene(m_store, live);
    const std::size_t styles = m_styles.count();
    std::vector<bool> wasShown(entities.size());
    for (std::size_t i = 0; i < entities.size(); ++i) {
        wasShown[i] = m_reach[entities[i]].any();
        m_reach[entities[i]] = {};
    }
    std::string written;
    SheetWriter writer(m_store, scene, m_view, m_styles);
    for (const picture::Shown& shown : scene.shown) {
        if (!written.empty()) written += ",\n";
        writer.write(written, shown);
        remember(scene, shown);
    }
    std::vector<std::string> gone;
    for (std::size_t i = 0; i < entities.size(); ++i) {
        if (wasShown[i] && !m_reach[entities[i]].any())
            gone.push_back(host::formatHandle(m_store.at(entities[i]).handle));
    }
    return json::Object{{"styles", json::Value::ofText(m_styles.listFrom(styles))},
                        {"entities", json::Value::ofText('[' + written + ']')},
                        {"gone", json::Value::list(gone)}};
}

std::vector<AcDbObjectId> Sheet::around(const Vec& point, double radius) const {
    std::vector<AcDbObjectId> found;
    for (Index slot = 0; slot < m_reach.size(); ++slot) {
        if (m_reach[slot].any() && holds(m_reach[slot].met, point, radius))
            found.push_back(m_store.idOf(slot));
    }
    return found;
}

AcDbObjectId Sheet::under(const Vec& point, double radius) const {
    host::OutlineMaker maker(m_store);
    std::vector<AcDbObjectId> hit;
    for (const AcDbObjectId id : around(point, radius)) {
        const host::ObjectBody* body = host::Store::resolve(id);
        if (body != nullptr && !body->erased && maker.outlineOf(*body).near(point, radius))
            hit.push_back(id);
    }
    return host::nearestOf(hit, m_store, {point.x, point.y, 0}, radius);
}

std::optional<Snap> Sheet::snap(const Vec& point, double radius) const {
    constexpr std::size_t kMostLooked = 400;  // where more lie, none is the one that is meant
    std::vector<AcDbObjectId> near = around(point, radius);
    if (near.size() > kMostLooked) near.resize(kMostLooked);
    host::OutlineMaker maker(m_store);
    NearestPoint nearest(point, radius);
    for (const AcDbObjectId id : near) {
        host::Outline outline;
        std::vector<host::OutlinePart> parts;
        const host::ObjectBody* body = host::Store::resolve(id);
        if (body == nullptr || body->erased) continue;
        maker.addOutline(*body, outline, parts);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const host::OutlineMark end = i + 1 < parts.size() ? parts[i + 1].from : outline.mark();
            if (parts[i].type != "HATCH") offerPart(nearest, outline, parts[i].from, end);
        }
    }
    return nearest.found();
}

}  // namespace window
