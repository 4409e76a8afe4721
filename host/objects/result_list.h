// Result buffers for the host's own rooms: building, copying, giving lists to the module.
//
// Every buffer is known to the host from its making to its release, so that a list that is released
// twice, or was never the host's, is found and named instead of crashing.
#pragma once

#include <string_view>

#include "host/objectarx/geometry.h"
#include "host/objectarx/object_id.h"
#include "host/objectarx/result_buffer.h"
#include "host/tags/tags.h"

namespace host {

class Store;

/// Which member of the value union a type code uses.
enum class ValueKind { Invalid, Nothing, Text, Point, Real, Short, Long, Int64, Name, Binary };

/// Kind by result type (RTSTR, ...), tag code (0 to 1071) or filter code (-1, -2, -4).
ValueKind valueKindOf(int type);

/// Builds a list, buffer by buffer. Frees what was not released.
class ResultList {
  public:
    ResultList() = default;
    ~ResultList();
    ResultList(const ResultList&) = delete;
    ResultList& operator=(const ResultList&) = delete;

    void addText(int type, std::wstring_view text);
    void addReal(int type, double value);
    /// Into the 16-, 32- or 64-bit member, as the type code asks.
    void addInteger(int type, long long value);
    void addPoint(int type, const AcGePoint3d& point);
    void addName(int type, AcDbObjectId id);
    void addBinary(int type, std::string_view bytes);
    /// A buffer without a value: RTLB, RTLE, RTDOTE, RTNIL, RTT.
    void addMark(int type);
    /// A copy with its own string; nothing for a type code that has no value.
    void addCopy(const resbuf& buffer);
    /// The tag that `reader` has just read; a point takes the tags of its other coordinates
    /// along. Texts are decoded, references become entity names ({0, 0} when nothing is there).
    /// Adds nothing for a code that result buffers have no value for.
    void addTag(const Store& store, const Tag& tag, TagReader& reader);

    bool empty() const { return m_first == nullptr; }
    /// The list; the caller owns it (acutRelRb). Null when nothing was added.
    resbuf* release();

  private:
    resbuf& append(int type);

    resbuf* m_first = nullptr;
    resbuf* m_last = nullptr;
};

/// Frees a list of either owner; for the host's own use, without the checks of acutRelRb.
void freeList(resbuf* list);
/// Makes a list the host's: acutRelRb leaves it alone and the ledger does not count it. The host
/// frees it with freeList.
void markHostOwned(resbuf* list);

/// The id in an entity name, the null id for the empty name or none. Not checked further.
AcDbObjectId idOfName(const ads_name name);
void nameOfId(AcDbObjectId id, ads_name name);

/// A string for the caller of an interface call, who frees it with acutDelString.
ACHAR* newString(std::wstring_view text);

}  // namespace host
