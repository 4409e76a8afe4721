// Every call that can answer with a failure fails on demand, without any effect.
#include "database/entities_drawing.h"

using entities::Drawing;

namespace {

/// A change that uses most calls of the database; true when all of them succeeded.
bool change(Drawing& drawing, AcDbObjectId lineId) {
    bool done = false;
    AcDbLayerTable* layers = nullptr;
    if (drawing.database().getLayerTable(layers, AcDb::kForRead) != Acad::eOk) return false;
    layers->close();
    AcDbObject* line = nullptr;
    if (acdbOpenObject(line, lineId, AcDb::kForRead) != Acad::eOk) return false;
    if (line->upgradeOpen() == Acad::eOk && line->createExtensionDictionary() == Acad::eOk) {
        AcDbDictionary* dictionary = nullptr;
        if (acdbOpenObject(dictionary, line->extensionDictionary(), AcDb::kForWrite) == Acad::eOk) {
            auto* record = new AcDbXrecord;
            AcDbObjectId id;
            if (dictionary->setAt(L"KEY", record, id) == Acad::eOk) {
                record->close();
                done = dictionary->remove(L"KEY") == Acad::eOk;
            } else {
                delete record;
            }
            dictionary->close();
        }
        done = line->releaseExtensionDictionary() == Acad::eOk && done;
        done = line->erase() == Acad::eOk && line->erase(false) == Acad::eOk && done;
    }
    line->close();
    return done;
}

}  // namespace

TEST(InjectedFaults, EachCallFailsOnceAndNothingIsLeftOpen) {
    Drawing drawing;
    const AcDbObjectId line = drawing.id(drawing.add("0 LINE|8 0"));
    ASSERT_TRUE(change(drawing, line));
    host::setFaultPlan({});
    ASSERT_TRUE(change(drawing, line));
    const long calls = host::faultCallCount();
    EXPECT_EQ(calls, 10);
    for (long failing = 1; failing <= calls; ++failing) {
        Drawing other;
        const AcDbObjectId otherLine = other.id(other.add("0 LINE|8 0"));
        host::setFaultPlan({failing, false, ""});
        EXPECT_FALSE(change(other, otherLine)) << "call " << failing;
        EXPECT_EQ(host::faultsInjected(), 1);
        host::setFaultPlan({});
    }
}

TEST(InjectedFaults, AFailedCallHasNoEffect) {
    Drawing drawing;
    host::ObjectBody& line = drawing.add("0 LINE|8 0");
    entities::Opened<AcDbObject> object(drawing.id(line), AcDb::kForWrite);
    const std::string before(line.tags());
    const auto revision = drawing.store().revision;
    host::setFaultPlan({1, true, ""});
    EXPECT_NE(object->createExtensionDictionary(), Acad::eOk);
    EXPECT_NE(object->erase(), Acad::eOk);
    AcDbObject* again = nullptr;
    EXPECT_NE(acdbOpenObject(again, drawing.id(line), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(again, nullptr);
    host::setFaultPlan({});
    EXPECT_EQ(line.tags(), before);
    EXPECT_EQ(drawing.store().revision, revision);
    EXPECT_FALSE(line.erased);
}
