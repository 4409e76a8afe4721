// What cannot be written or read: a locked layer, a block that is not there, a marker.
#include "host/control/faults.h"
#include "storage_pieces.h"

namespace {

using tests::Scene;

/// What the module itself printed: prompts, echoes and what the host says are left out.
std::string answers(std::string printed) {
    for (const std::string prompt :
         {"\nSelect member of VelmoGroup: ", "\nRegenerating model.", "\nNothing selected"})
        printed = tests::replaced(printed, prompt, "");
    const std::string last = "Select objects: ";
    const std::size_t at = printed.rfind(last);
    return at == printed.npos ? printed : printed.substr(at + last.size());
}

constexpr const wchar_t* kDelete = L"VelmoGROUPDELETE #2 #3 #4 #1 #5\n\n";
constexpr const wchar_t* kRemove = L"VelmoGROUPREMOVEMEMBER #3\n\n";
constexpr const wchar_t* kMake = L"VelmoGROUPMAKE #3 #6\n\n";
constexpr const wchar_t* kRepair = L"VelmoGROUPNOTACTIVE\nERASE #3\n\nREGEN\n";

const std::string kWhole = "begin(3) line* line* line* end circle";
const std::string kKept = "\nIn fucntion deleteXrecord Open Object failed.";
const std::string kNone = "\n\tSome are not grouped entities.";
const std::string kThree = kKept + kKept + kKept;
const std::string kLeft2 = "\nEntity Removed, 2 still in the Group.";

const struct {
    const char* locked;  // places in kWhole
    const wchar_t* script;
    std::string outcome;
} kCases[] = {
    {"12345", kDelete, kWhole + kThree + kThree + kThree + "\n9 Entities Ungrouped."},
    {"2345", kDelete,
     "line* line* line* end? circle" + kThree + kNone + kNone + "\n3 Entities Ungrouped."},
    {"15", kDelete, "begin(3) line line line end circle\n3 Entities Ungrouped."},
    {"3", kRemove, "begin(2) line* line* line* end circle line*" + kKept + kLeft2},
    {"1", kRemove, "begin(3) line* line* end circle line" + kLeft2},
    {"5", kRemove, "begin(2) line* line* end circle line" + kLeft2},
    {"3", kMake,
     "line* begin(4) line* circle* line* line* end"
     "\nIn fucntion createXrecord acdbOpenObject failed."},
    {"15", kMake, "begin(3) end begin(4) line* circle* line* line* end"},
    {"1", kRepair, "begin(3) line* line* end circle\n1 Groups Updated. "},
    {"5", kRepair, "begin(2) line* line* end circle\n1 Groups Updated. "},
};

TEST(LockedLayer, KeepsWhatStandsOnItAndTheRestGoesOn) {
    for (const auto& each : kCases) {
        Scene scene("(line line line) circle");
        tests::addRecord<AcDbLayerTable, AcDbLayerTableRecord>(L"LOCKED");
        for (const char* place = each.locked; *place != '\0'; ++place) {
            Opened<AcDbEntity> entity;
            acdbOpenAcDbEntity(entity.receive(), scene.entities()[*place - '1'], AcDb::kForWrite);
            entity->setLayer(L"LOCKED");
        }
        tests::lockLayer(L"LOCKED");
        scene.after(each.script);
        EXPECT_EQ(scene.order() + answers(Scene::printed()), each.outcome)
            << each.locked << host::toUtf8(each.script);
    }
}

/// A reference whose block the drawing lacks carries no tag: it is a member as any other.
TEST(MakeGroup, TakesAReferenceWithoutItsBlock) {
    tests::Drafting drafting(TESTS_FOLDER "/module/undefined_block.dxf", L"",
                             tests::Drafting::Damage::Known);
    drafting.run(L"LINE 1,1 2,2\n\nVelmoGROUPMAKE ALL\n\n");
    EXPECT_EQ(drafting.order(), "begin(2) line* insert* end");
    host::setFaultPlan({5, false, "AcDbBlockReference::openAttribute"});
    EXPECT_TRUE(tests::holds(drafting.run(L"VelmoGROUPMAKE ALL\n\n"),
                             L"No group formed: an entity cannot"));
    EXPECT_EQ(drafting.order(), "begin(2) line* insert* end");
    EXPECT_TRUE(host::pickfirst().empty());
}

}  // namespace
