// Filters of selection sets.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/objectarx/result_buffer.h"
#include "host/store/object_body.h"

namespace host {

/// A filter list: every item must match (AND).
///
/// Text tags match by wild cards, those that hold names (0, 2, 6, 7, 8, 410, 5) without regard to
/// case. Numbers match by equality. Entities that lack a tag have its default value where the
/// format defines one. Operators (-4), points, names of entities and extended data are not served.
class SelectionFilter {
  public:
    /// Reads a list; null gives a filter that everything passes. False when an item is not served.
    static bool read(const resbuf* list, SelectionFilter& filter);

    /// Use one filter for one drawing.
    bool matches(const ObjectBody& entity) const;
    bool isEmpty() const { return m_items.empty(); }

  private:
    struct Item {
        int code = 0;
        bool isText = false;
        std::wstring pattern;
        double number = 0;
        std::optional<Kind> kind = {};  ///< of the one type that passes, when the kind tells it
        /// The text tested last and its outcome: entities of one type or layer come in rows.
        mutable std::string tested = {};
        mutable bool passed = false;

        bool passes(const Store& store, std::string_view value) const;
        bool matches(const ObjectBody& entity) const;
    };

    std::vector<Item> m_items;
};

}  // namespace host
