// Lists and sets of object ids.
//
// Ids are compared with c5ObjIdIsEqualTo. The interface's `operator==` is that call.
#pragma once

#include <cstddef>
#include <vector>

#include "platform.h"

/// Characters of a handle as text, with its end.
const int kHandleBufferLength = 17;

/// Growth length of every list of ids.
const int kIdListGrowth = 8;

/// The number that a handle is, of which an object has one for as long as it exists; 0 for the null
/// id. Not the id's own bytes: how ids compare is the host's.
inline std::size_t handleNumber(const AcDbObjectId& id) {
    if (id.isNull()) return 0;
    ACHAR text[kHandleBufferLength] = {};
    id.handle().getIntoAsciiBuffer(text);
    std::size_t number = 0;
    for (const ACHAR* digit = text; *digit != 0; ++digit) {
        number = 16 * number + (*digit <= L'9' ? *digit - L'0' : *digit - L'A' + 10);
    }
    return number;
}

/// Values by id, for the time of one operation. A pointer to a value stays good until an id is
/// added.
///
/// All entries stand in one vector in the order in which they came; those of one bucket are a chain
/// through it. Handles choose the bucket unscrambled: what stands together in a drawing mostly has
/// neighbouring handles, and stays together in memory.
template <typename T>
class IdMap {
  public:
    /// False, and nothing changes, when the id has a value already.
    bool add(const AcDbObjectId& id, const T& value) {
        const std::size_t number = handleNumber(id);
        if (indexOf(id, number) != kNone) return false;
        append(id, number, value);
        return true;
    }
    /// Gives the id this value, whether it had one or not.
    void set(const AcDbObjectId& id, const T& value) {
        const std::size_t number = handleNumber(id);
        const int index = indexOf(id, number);
        if (index == kNone) {
            append(id, number, value);
        } else {
            m_aEntries[index].value = value;
        }
    }
    /// Null when the id has no value.
    const T* find(const AcDbObjectId& id) const {
        const int index = indexOf(id, handleNumber(id));
        return index == kNone ? nullptr : &m_aEntries[index].value;
    }
    T* find(const AcDbObjectId& id) {
        const int index = indexOf(id, handleNumber(id));
        return index == kNone ? nullptr : &m_aEntries[index].value;
    }

    /// Costs what was added, however much there once was.
    void clear() {
        for (std::size_t i = 0; i < m_aEntries.size(); ++i) {
            bucketOf(m_aEntries[i].number) = kNone;
        }
        m_aEntries.clear();
    }

  private:
    enum { kNone = -1 };

    struct Entry {
        AcDbObjectId id;
        std::size_t number;
        int next;  // in the same bucket, or kNone
        T value;
    };

    int& bucketOf(std::size_t number) { return m_aBuckets[number % m_aBuckets.size()]; }

    int indexOf(const AcDbObjectId& id, std::size_t number) const {
        if (m_aEntries.empty()) return kNone;
        int index = m_aBuckets[number % m_aBuckets.size()];
        while (index != kNone &&
               (m_aEntries[index].number != number || !(m_aEntries[index].id == id))) {
            index = m_aEntries[index].next;
        }
        return index;
    }

    void append(const AcDbObjectId& id, std::size_t number, const T& value) {
        if (m_aEntries.size() >= m_aBuckets.size()) makeBuckets();
        int& first = bucketOf(number);
        const Entry entry = {id, number, first, value};
        m_aEntries.push_back(entry);
        first = static_cast<int>(m_aEntries.size()) - 1;
    }

    /// Twice as many. An odd number, so that handles a power of two apart do not share few
    /// buckets.
    void makeBuckets() {
        m_aBuckets.assign(2 * m_aBuckets.size() + 1, kNone);
        for (std::size_t i = 0; i < m_aEntries.size(); ++i) {
            int& first = bucketOf(m_aEntries[i].number);
            m_aEntries[i].next = first;
            first = static_cast<int>(i);
        }
    }

    std::vector<int> m_aBuckets;  // index of the first entry of each
    std::vector<Entry> m_aEntries;
};

/// Ids without values, beside a list that says their order.
class IdSet {
  public:
    IdSet() {}
    explicit IdSet(const AcDbObjectIdArray& ids) { add(ids); }

    /// False when the id is there already.
    bool add(const AcDbObjectId& id) { return m_ids.add(id, Nothing()); }
    void add(const AcDbObjectIdArray& ids) {
        for (int i = 0; i < ids.length(); ++i) {
            add(ids[i]);
        }
    }
    bool has(const AcDbObjectId& id) const { return m_ids.find(id) != nullptr; }
    void clear() { m_ids.clear(); }

  private:
    struct Nothing {};
    IdMap<Nothing> m_ids;
};
