// Filters of selection sets.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/objectarx/result_buffer.h"
#include "host/store/object_body.h"

namespace host {

/// A filter list: every item must match, but for what stands between the operators (-4) "<OR" and
/// "OR>", "<XOR", "<NOT", "<AND" and theirs.
///
/// Text tags match by wild cards, those that hold names (0, 2, 6, 7, 8, 410, 5) without regard to
/// case. Numbers match by equality. Entities that lack a tag have its default value where the
/// format defines one. Relations (-4 with ">="), points, names of entities and extended data are
/// not served.
class SelectionFilter {
  public:
    /// Reads a list; null gives a filter that everything passes. False when an item is not served
    /// or the operators do not pair.
    static bool read(const resbuf* list, SelectionFilter& filter);

    /// Use one filter for one drawing.
    bool matches(const ObjectBody& entity) const;

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

    enum class Operator { And, Or, Xor, Not };
    struct Group {
        Operator by = Operator::And;
        std::vector<Item> items = {};
        std::vector<Group> groups = {};

        bool matches(const ObjectBody& entity) const;
    };
    static bool readItem(const resbuf& buffer, Item& item);
    /// Reads until the operator `end`, or the end of the list when that is empty.
    static bool readGroup(const resbuf*& at, const std::wstring& end, int depth, Group& group);
    static bool readOperator(const resbuf*& at, int depth, Group& outer);

    Group m_all;
};

}  // namespace host
