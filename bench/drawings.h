// The drawings that the benchmarks work on.
#pragma once

#include <string>
#include <vector>

#include "host/application/session.h"
#include "host/objectarx/database.h"
#include "host/store/store.h"

namespace bench {

/// A session of the host with as many drawings as a benchmark needs. What cannot be done throws
/// std::runtime_error.
class Drawings {
  public:
    Drawings();
    ~Drawings();
    Drawings(const Drawings&) = delete;
    Drawings& operator=(const Drawings&) = delete;

    /// Opens a drawing of `count` lines in a row and makes it current.
    void openLines(long count);
    /// Makes the drawing current that is the index-th in the order of opening.
    void activate(std::size_t index);
    void closeAll();

  private:
    host::Session m_session;
};

/// Throws std::runtime_error with what does not hold.
void mustHold(bool holds, const std::string& what);

/// Store of the current drawing.
host::Store& store();
/// Main entities of its model space in drawing order.
std::vector<AcDbObjectId> entities();
/// Appends clones of entities to model space, as COPY does.
void cloneAll(const std::vector<AcDbObjectId>& ids);
/// Forms groups of `members` of them in drawing order, as VelmoGROUPMAKE does of a selection.
void formGroups(long members);

/// Writes an AC1027 drawing of `count` lines, arcs, circles, block references, polylines, texts and
/// points, every tenth with extended data: 117 bytes for each. libdime and ezdxf read all of it.
void writeMixedDrawing(const std::string& path, long count);

}  // namespace bench
