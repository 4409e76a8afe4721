// Single calls that the host refuses: what stays as it was.
#include "common/scene.h"
#include "host/control/faults.h"
#include "host/editor/state/document_state.h"

namespace {

using tests::Scene;

/// Drawing order after the script with one refused call, and after a regeneration.
std::string settled(const wchar_t* script, const host::FaultPlan& plan) {
    Scene scene("(line circle line) line");
    host::currentDocumentState()->highlighted.clear();
    host::setFaultPlan(plan);
    scene.after(script);
    EXPECT_GT(host::faultsInjected(), 0);
    host::setFaultPlan({});
    EXPECT_TRUE(host::currentDocumentState()->highlighted.empty());
    const std::string order = scene.order();
    scene.run(L"REGEN\n");
    return scene.order() == order ? order : order + " -> " + scene.order();
}

TEST(RefusedCall, LeavesAGroupThatCannotBeFormedAsItWas) {
    const std::string asItWas = "begin(3) line* circle* line* end line";
    for (const host::FaultPlan& plan : {host::FaultPlan{1, false, "AcDbDatabase::deepCloneObjects"},
                                        {1, false, "acedSSDel"},
                                        {1, false, "AcDbBlockTableRecord::appendAcDbEntity"},
                                        {4, false, "acedSSLength"},
                                        {5, false, "acedSSLength"},
                                        {6, false, "acedSSLength"}}) {
        EXPECT_EQ(settled(L"VelmoGROUPMAKE #2 #6\n\n", plan), asItWas) << plan.onlyCalls;
    }
}

TEST(RefusedCall, LeavesAMemberThatCannotGoInItsGroup) {
    EXPECT_EQ(
        settled(L"VelmoGROUPREMOVEMEMBER #3\n\n", {1, false, "AcDbDatabase::deepCloneObjects"}),
        "begin(3) line* circle* line* end line");
    EXPECT_EQ(settled(L"VelmoGROUPREMOVEMEMBER #3\n\n", {1, false, "acedSSAdd"}),
              "begin(3) line* circle* line* end line");
    // Its clone is made, but it does not go.
    EXPECT_EQ(settled(L"VelmoGROUPREMOVEMEMBER #3\n\n", {1, false, "AcDbObject::erase"}),
              "begin(3) line* circle line* end line circle");
}

}  // namespace
