// The groups of a drawing as a page lists them, and what a click on a member selects.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/objectarx/object_id.h"
#include "inspection/inspection.h"
#include "json/json.h"

namespace window {

/// Of the host's thread.
class Groups {
  public:
    void set(inspection::Inspection found);

    /// {"groups": [{begin, space, verdict, count, members, what, reason, outlook}, ...],
    /// "strays": [text, ...]}
    json::Object list() const;
    /// The group that an entity stands in, by its place between markers; null for none.
    const inspection::Group* of(AcDbObjectId entity) const;
    /// The group with a begin marker's handle; null for none.
    const inspection::Group* beginningAt(const std::string& handle) const;
    /// What a click on an entity selects while grouping is on: its group where that is one for the
    /// module, which walks from an entity with a record and forgives members that are gone, else
    /// the entity alone.
    std::vector<std::string> selectedBy(AcDbObjectId entity) const;

  private:
    inspection::Inspection m_found;
    struct Place {
        std::size_t group, member;
    };
    std::unordered_map<std::uint64_t, Place> m_places;  ///< of members, by id
};

}  // namespace window
