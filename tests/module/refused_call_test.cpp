// Single calls that the host refuses: what stays as it was, and what a regeneration makes of it.
#include "common/scene.h"
#include "host/control/faults.h"
#include "host/editor/state/document_state.h"
#include "host_guards.h"

namespace {

using tests::Scene;

constexpr const wchar_t* kEnlarge = L"VelmoGROUPMAKE #2 #6\n\n";
constexpr const wchar_t* kTakeOut = L"VelmoGROUPREMOVEMEMBER #3\n\n";
constexpr const char* kAsItWas = "begin(3) line* circle* line* end line";
/// The markers are rewritten before the member is taken out, which was refused then.
constexpr const char* kCountedDown = "begin(2) line* circle* line* end line";
constexpr const char* kDissolved = "line* circle* line* line";

constexpr struct {
    const wchar_t* script;
    const char* call;
    long number = 1;
    const char* order = kAsItWas;
    const char* regenerated = kAsItWas;
} kRefusals[] = {
    {kEnlarge, "AcDbDatabase::deepCloneObjects"},
    {kEnlarge, "acedSSDel"},
    {kEnlarge, "AcDbBlockTableRecord::appendAcDbEntity"},
    {kEnlarge, "acedSSLength", 4},
    {kEnlarge, "acedSSLength", 5},
    {kEnlarge, "acedSSLength", 6},
    {kEnlarge, "acdbOpenObject", 14},  // the block of a marker in the selection
    {kTakeOut, "AcDbDatabase::deepCloneObjects", 1, kCountedDown, kDissolved},
    {kTakeOut, "acedSSAdd", 1, kCountedDown, kDissolved},
    {L"VelmoGROUPDELETE #2\n\n", "acedSSLength"},
    // Its clone is made, but it does not go.
    {kTakeOut, "AcDbObject::erase", 1, "begin(2) line* circle line* end line circle",
     "line* circle line* line circle"},
};

TEST(RefusedCall, LeavesEntitiesAsTheyWere) {
    for (const auto& each : kRefusals) {
        SCOPED_TRACE(each.call + std::to_string(each.number));
        Scene scene("(line circle line) line");
        host::currentDocumentState()->highlighted.clear();
        host::setFaultPlan({each.number, false, each.call});
        scene.after(each.script);
        EXPECT_GT(host::faultsInjected(), 0);
        host::setFaultPlan({});
        EXPECT_TRUE(host::currentDocumentState()->highlighted.empty());
        EXPECT_EQ(scene.order(), each.order);
        scene.run(L"REGEN\n");
        EXPECT_EQ(scene.order(), each.regenerated);
    }
}

TEST(RefusedCall, GivesARecordBackThatStoodBesideAnother) {
    Scene scene("(line line)");
    {
        Opened<AcDbObject> member;
        Opened<AcDbDictionary> dictionary;
        acdbOpenObject(member.receive(), scene.entities()[1], AcDb::kForRead);
        acdbOpenObject(dictionary.receive(), member->extensionDictionary(), AcDb::kForWrite);
        const NewObject<AcDbXrecord> other(new AcDbXrecord);
        AcDbObjectId id;
        ASSERT_EQ(dictionary->setAt(L"OTHER", other.get(), id), Acad::eOk);
    }
    host::setFaultPlan({1, false, "AcDbDatabase::deepCloneObjects"});
    scene.after(L"VelmoGROUPREMOVEMEMBER #2\n\n");
    host::setFaultPlan({});
    EXPECT_EQ(scene.order(), "begin(1) line* line* end");
}

}  // namespace
