// One space of a drawing as a page shows it, and what of it is where the pointer is.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/geometry/shapes.h"
#include "host/objectarx/object_id.h"
#include "host/store/store.h"
#include "json/json.h"
#include "picture/paths.h"
#include "window/sheet_writer.h"

namespace window {

/// A point that a pointer near it jumps to.
struct Snap {
    host::Vec point;
    const char* kind;  ///< "end", "middle" or "centre"
};

/// Of the host's thread. The drawing outlives it.
class Sheet {
  public:
    Sheet(const host::Store& store, host::Index space);

    host::Index space() const { return m_space; }
    /// Everything: "space", "scale", "left", "top" (of the drawing's units in those of the paths),
    /// "box", "styles" and "entities".
    json::Object all();
    /// "styles", "entities" and "gone": what became of some slots of the drawing. Nothing when more
    /// than that has changed, so that all has to be told again.
    std::optional<json::Object> changes(const std::vector<host::Index>& slots);

    /// What a click takes, as the host decides: within a radius, the nearest; null for nothing.
    AcDbObjectId under(const host::Vec& point, double radius) const;
    /// End, middle or centre that is nearest to a point within a radius.
    std::optional<Snap> snap(const host::Vec& point, double radius) const;

  private:
    enum class Change { None, Entity, Everything };
    Change changeOf(host::Index slot, host::Index& entity) const;
    void remember(const picture::Scene& scene, const picture::Shown& shown);
    std::vector<AcDbObjectId> around(const host::Vec& point, double radius) const;
    /// What a click can meet: larger than what is seen where lines are endless.
    struct Reach {
        host::Box shown{1, 0, 0, 0};
        host::Box met{1, 0, 0, 0};
        bool any() const { return shown.left <= shown.right; }
    };

    const host::Store& m_store;
    host::Index m_space;
    host::Index m_known;  ///< slots up to here were there when it was told last
    picture::View m_view;
    Styles m_styles;
    std::vector<Reach> m_reach;  ///< by slot
};

}  // namespace window
