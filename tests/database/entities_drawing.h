// A small drawing for the tests of entities: made from tag literals, rendered as text.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/tag_literals.h"
#include "host/content/fields.h"
#include "host/control/accounting.h"
#include "host/control/faults.h"
#include "host/dxf/load/load_drawing.h"
#include "host/objectarx/arxHeaders.h"
#include "host/store/store.h"

namespace entities {

using tests::render;
using tests::tagsOf;

/// The working drawing of a test; its end checks that nothing is held and no fault was reported.
class Drawing {
  public:
    Drawing() {
        host::setFaultPlan({});
        host::clearModuleFaults();
        acdbHostApplicationServices()->setWorkingDatabase(&m_database);
    }
    ~Drawing() {
        host::checkNothingLeaked(m_before, "the test");
        for (const std::string& fault : host::moduleFaults())
            ADD_FAILURE() << fault;
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    AcDbDatabase& database() { return m_database; }
    host::Store& store() { return m_database.store(); }
    host::ObjectBody& model() { return store().at(store().modelSpace()); }
    host::ObjectBody& paper() { return store().at(store().paperSpace()); }
    AcDbObjectId id(const host::ObjectBody& body) { return store().idOf(body); }
    std::string handle(const host::ObjectBody& body) { return host::formatHandle(body.handle); }

    host::ObjectBody& make(const std::string& literal, const host::ObjectBody& owner,
                           bool isEntity = true) {
        return tests::make(store(), literal, owner.self, isEntity);
    }
    host::ObjectBody& add(const std::string& literal, host::ObjectBody& owner) {
        host::ObjectBody& body = make(literal, owner);
        store().appendChild(owner.self, body);
        return body;
    }
    host::ObjectBody& add(const std::string& literal) { return add(literal, model()); }
    host::ObjectBody& addEnd(host::ObjectBody& parent) {
        host::ObjectBody& end = make("0 SEQEND|100 AcDbEntity|8 0", parent);
        store().setSequenceEnd(parent, end);
        return end;
    }
    host::ObjectBody& addObject(const std::string& literal, const host::ObjectBody& owner) {
        host::ObjectBody& body = make(literal, owner, false);
        store().appendChild(store().objectsList(), body);
        return body;
    }
    /// An old-style polyline of two vertices.
    host::ObjectBody& addPolyline() {
        host::ObjectBody& line = add("0 POLYLINE|100 AcDbEntity|8 0|100 AcDb2dPolyline|66 1");
        add("0 VERTEX|100 AcDbEntity|8 0", line);
        add("0 VERTEX|100 AcDbEntity|8 0", line);
        addEnd(line);
        return line;
    }
    void replaceText(host::ObjectBody& body, const std::string& from, const std::string& to) {
        std::string text = render(body.tags());
        const std::size_t at = text.find(from);
        ASSERT_NE(at, text.npos);
        body.setTags(tagsOf(text.replace(at, from.size(), to)));
    }
    /// Types met from an entity on, "LINE SEQEND".
    std::string walk(AcDbObjectId from) {
        std::string types;
        ads_name at = {static_cast<Adesk::IntPtr>(from.asWord()), 0};
        while (acdbEntNext(at, at) == RTNORM) {
            const auto* body = host::Store::resolve(AcDbObjectId::fromWord(at[0]));
            types += (types.empty() ? "" : " ") + std::string(body->type());
        }
        return types;
    }

  private:
    AcDbDatabase m_database{host::newDrawing()};
    host::HeldCounts m_before = host::heldNow();
};

class DrawingTest : public testing::Test {
  protected:
    Drawing drawing;
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

}  // namespace entities
