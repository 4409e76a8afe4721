// The repair pass: what editing breaks, and what a regeneration or a save makes of it.
#include "common/scene.h"
#include "handle_text.h"
#include "host/control/faults.h"
#include "host/dxf/load/load_drawing.h"
#include "host/editor/state/notify.h"
#include "storage_pieces.h"

namespace {

using tests::Scene;

/// State after a regeneration; what the host itself says about it is left out.
std::string afterRegen(Scene& scene) {
    const std::string said = "\nRegenerating model.";
    std::string state = scene.after(L"REGEN\n");
    const std::size_t at = state.find(said);
    return at == std::string::npos ? state : state.erase(at, said.size());
}

TEST(Repair, LostMembersLowerTheCountAndAnEmptiedGroupGoes) {
    Scene scene("(line line line)");
    scene.after(L"VelmoGROUPNOTACTIVE\nERASE #3\n\n");
    EXPECT_EQ(afterRegen(scene), "begin(2) line* line* end |  | \n1 Groups Updated. ");
    scene.after(L"ERASE #2 #3\n\n");
    EXPECT_EQ(afterRegen(scene), " |  | \n1 Groups Deleted. ");
}

TEST(Repair, MarkersWithoutAPartnerArePurgedOnceTheDrawingForgotIt) {
    Scene scene("(line) circle");
    scene.after(L"ERASE #1\n\n");  // the begin marker; its handle is still known
    ASSERT_EQ(scene.order(), "line* end? circle");
    EXPECT_EQ(afterRegen(scene), "line* end? circle |  | ");
    scene.saveAndReopen();
    EXPECT_EQ(afterRegen(scene), "line* circle |  | ");
}

TEST(Repair, WhatIsNamedAlmostLikeAMarkerStays) {
    Scene scene("line");
    const std::wstring known = handleText(scene.entities()[0]);
    for (const wchar_t* name : {L"VELMO_GATE", L"VELMO_G", L"VELMO_GX", L"KEST_GB", L"AVELMO_GB"})
        tests::insertBlock(name, known);
    // What is named as a marker is and has no marker's tag goes, on purpose.
    EXPECT_EQ(afterRegen(scene), "line insert insert begin()? begin()? |  | ");
}

TEST(Repair, AGroupOfMarkersAloneGoes) {
    Scene scene("(line)");
    host::setFaultPlan({1, true, "AcDbDatabase::deepCloneObjects"});  // there is nothing to clone
    scene.after(L"VelmoGROUPMAKE #1 #3\n\n");
    host::setFaultPlan({});
    EXPECT_EQ(scene.order(), "line* begin(0) end");
    EXPECT_EQ(afterRegen(scene), "line* |  | \n1 Groups Updated. ");
}

TEST(Repair, TagsAreMarkersInAnyCase) {
    Scene scene("(line line)");
    {
        Opened<AcDbAttribute> attribute;
        tests::openAttribute(scene, 1, 0, attribute);
        attribute->setTag(L"velmo_ge");
    }
    EXPECT_TRUE(tests::holds(afterRegen(scene), "1 Groups Updated"));
    scene.after(L"VelmoGROUPMAKE ALL\n\n");
    EXPECT_EQ(scene.order(), "begin(2) line* line* end");
}

TEST(Repair, MarkersStayWhereTheyStand) {
    Scene scene("(line line) (line)");
    scene.after(L"VelmoGROUPNOTACTIVE\nMOVE #4\n\n0,0 5,0\n");
    scene.after(L"ERASE #2\n\n");
    afterRegen(scene);
    EXPECT_EQ(tests::markerPlaces(scene.store()), "1.0(1.0 1.0) 6.0(6.0) 3.0(3.0 3.0) 3.0(3.0)");
}

TEST(Repair, RunsBeforeTheWorkingDrawingIsSavedAndForNoOther) {
    Scene scene("(line line line)");
    scene.after(L"VelmoGROUPNOTACTIVE\nERASE #3\n\n");
    AcDbDatabase other(host::newDrawing());
    host::clearEffects();
    host::notifyBeginSave(&other, L"other.dxf");
    EXPECT_EQ(Scene::printed(), "");
    scene.saveAndReopen();
    EXPECT_EQ(scene.order(), "begin(2) line* line* end");
}

TEST(Repair, WorksInEverySpaceAtOnce) {
    Scene scene("(line line)");
    scene.run(L"SETVAR TILEMODE 0\nCIRCLE 1,1 2\nVelmoGROUPMAKE ALL\n\n");
    EXPECT_EQ(afterRegen(scene), "begin(2) line* line* end |  | \n2 Groups Updated. ");
}

}  // namespace
