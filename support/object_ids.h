// Lists and sets of object ids.
//
// Ids are compared with c5ObjIdIsEqualTo. The interface's `operator==` is that call; only what
// brings a comparison of its own has to name it.
#pragma once

#include <cwchar>
#include <memory_resource>
#include <unordered_map>

#include "platform.h"

/// Characters of a handle as text, with its end.
constexpr int kHandleBufferLength = 17;

/// Growth length of every list of ids.
constexpr int kIdListGrowth = 8;

struct SameId {
    bool operator()(const AcDbObjectId& left, const AcDbObjectId& right) const {
        return c5ObjIdIsEqualTo(left, right);
    }
};

/// By the handle, of which an object has one for as long as it exists. Not by the id's own bytes:
/// how ids compare is the host's. Not scrambled either: what stands together in a drawing mostly
/// has neighbouring handles, and stays together in memory.
struct HashId {
    std::size_t operator()(const AcDbObjectId& id) const {
        ACHAR text[kHandleBufferLength] = {};
        id.handle().getIntoAsciiBuffer(text);
        return static_cast<std::size_t>(std::wcstoull(text, nullptr, 16));
    }
};

/// Values by id, for the time of one operation: memory is taken in large pieces, since one for each
/// id would cost more than all else, and given back at the end only.
template <typename T>
class IdMap {
  public:
    /// False, and nothing changes, when the id has a value already.
    bool add(const AcDbObjectId& id, const T& value) { return m_values.emplace(id, value).second; }
    /// Null when the id has no value.
    const T* find(const AcDbObjectId& id) const {
        const auto found = m_values.find(id);
        return found == m_values.end() ? nullptr : &found->second;
    }

    void clear() { m_values.clear(); }

  private:
    std::pmr::monotonic_buffer_resource m_memory;
    std::pmr::unordered_map<AcDbObjectId, T, HashId, SameId> m_values{&m_memory};
};

/// Ids without values, beside a list that says their order.
class IdSet {
  public:
    IdSet() = default;
    explicit IdSet(const AcDbObjectIdArray& ids) { add(ids); }

    /// False when the id is there already.
    bool add(const AcDbObjectId& id) { return m_ids.add(id, {}); }
    void add(const AcDbObjectIdArray& ids) {
        for (int i = 0; i < ids.length(); ++i) {
            add(ids[i]);
        }
    }
    bool has(const AcDbObjectId& id) const { return m_ids.find(id) != nullptr; }

  private:
    struct Nothing {};
    IdMap<Nothing> m_ids;
};
