// A small drawing that is current: made from tag literals, rendered as text.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/checks.h"
#include "common/tag_literals.h"
#include "host/content/fields.h"
#include "host/control/accounting.h"
#include "host/control/faults.h"
#include "host/dxf/load/load_drawing.h"
#include "host/objectarx/arxHeaders.h"
#include "host/store/store.h"

namespace tests {

/// Works in a new drawing; at the end nothing may be held and no fault of a module be left over.
class DrawingTest : public testing::Test {
  protected:
    DrawingTest() {
        host::setFaultPlan({});
        host::clearModuleFaults();
        acdbHostApplicationServices()->setWorkingDatabase(&database);
    }
    ~DrawingTest() override {
        host::checkNothingLeaked(m_before, "the test");
        EXPECT_EQ(takeFaults(), std::vector<std::string>());
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    host::ObjectBody& model() const { return store.at(store.modelSpace()); }
    host::ObjectBody& paper() const { return store.at(store.paperSpace()); }
    AcDbObjectId idOf(const host::ObjectBody& body) const { return store.idOf(body); }
    static std::string handle(const host::ObjectBody& body) {
        return host::formatHandle(body.handle);
    }

    host::ObjectBody& add(const std::string& literal, const host::ObjectBody& owner) const {
        return append(store, literal, owner.self);
    }
    host::ObjectBody& add(const std::string& literal) const { return add(literal, model()); }
    host::ObjectBody& addObject(const std::string& literal, const host::ObjectBody& owner) const {
        return appendObject(store, literal, owner.self);
    }
    /// An old-style polyline of two vertices.
    host::ObjectBody& addPolyline() const {
        host::ObjectBody& line = add("0 POLYLINE|100 AcDbEntity|8 0|100 AcDb2dPolyline|66 1");
        add("0 VERTEX|100 AcDbEntity|8 0", line);
        add("0 VERTEX|100 AcDbEntity|8 0", line);
        store.setSequenceEnd(line, make(store, "0 SEQEND|100 AcDbEntity|8 0", line.self));
        return line;
    }
    static void replaceText(host::ObjectBody& body, const std::string& from,
                            const std::string& to) {
        body.setTags(tagsOf(with(render(body.tags()), from, to)));
    }
    /// Types met from an entity on, "LINE SEQEND".
    static std::string walk(AcDbObjectId from) {
        std::string types;
        ads_name at = {static_cast<Adesk::IntPtr>(from.asWord()), 0};
        while (acdbEntNext(at, at) == RTNORM) {
            const auto* body = host::Store::resolve(AcDbObjectId::fromWord(at[0]));
            types += (types.empty() ? "" : " ") + std::string(body->type());
        }
        return types;
    }

    AcDbDatabase database{host::newDrawing()};
    host::Store& store = database.store();

  private:
    host::HeldCounts m_before = host::heldNow();
};

/// Opens an object for the length of a scope.
template <typename T>
class Opened {
  public:
    Opened(AcDbObjectId id, AcDb::OpenMode mode) { status = acdbOpenObject(m_object, id, mode); }
    ~Opened() {
        if (m_object != nullptr) m_object->close();
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    Acad::ErrorStatus status = Acad::eOk;

  private:
    T* m_object = nullptr;
};

/// The values of a list; appends its codes, each with a blank.
inline std::vector<const ads_u_val*> valuesOf(const resbuf* list, std::string& codes) {
    std::vector<const ads_u_val*> values;
    for (; list != nullptr; list = list->rbnext) {
        codes += std::to_string(list->restype) + " ";
        values.push_back(&list->resval);
    }
    return values;
}

}  // namespace tests
