// The list as a drafter and as a program read it, and the picture of the same drawing.
#include "inspection/report.h"
#include "common/drawing_order.h"
#include "common/scene.h"
#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/reports/json_text.h"
#include "picture/svg/picture.h"

namespace {

using tests::Scene;

/// The list without handles: those of the drawing's entities are replaced by their positions.
std::string listOf(Scene& scene) {
    std::string list = inspection::listText("", inspectDrawing(*scene.store().database, true));
    int position = 0;
    for (const AcDbObjectId& id : scene.entities()) {
        const std::string handle = host::formatHandle(host::Store::resolve(id)->handle);
        const std::string name = "#" + std::to_string(++position);
        list = tests::replaced(list, " " + handle + " ", " " + name + " ");
    }
    return list;
}

TEST(InspectionReport, TellsWhatIsWrongInADraftersWords) {
    Scene scene("(line line line) circle (circle) (line circle)");
    EXPECT_EQ(
        listOf(scene).substr(0, listOf(scene).find('\n')),
        "group #1 to #5 in Model: whole, counts 3; holds 3 LINE; 3 on layer 0; from 1,0 to 3,1");
    scene.after(L"VelmoGROUPNOTACTIVE\nERASE #3 #8 #13\n\n");
    EXPECT_EQ(
        listOf(scene),
        "group #1 to #4 in Model: short, counts 3; holds 2 LINE; 2 on layer 0; from 1,0 to 3,1"
        "; 1 member is gone; the next save lowers the count to 2\n"
        "group #6 to #7 in Model: empty, counts 1; nothing stands between its markers; the "
        "next save dissolves it\n"
        "stray begin marker #8 (INSERT) in Model: no end marker follows\n"
        "stray group record #9 (LINE) in Model: it belongs to no group any more\n"
        "stray group record #10 (CIRCLE) in Model: it belongs to no group any more\n"
        "0 whole, 2 not whole, 3 stray\n");
}

TEST(InspectionReport, EverySpaceIsListedAndAPictureShowsOne) {
    Scene scene("(line line) circle");
    scene.run(L"SETVAR TILEMODE 0\nCIRCLE 5,5 1\nVelmoGROUPMAKE ALL\n\n");
    const host::Store& store = scene.store();
    const inspection::Inspection found = inspectDrawing(*store.database, false);
    ASSERT_EQ(found.groups.size(), 2u);
    EXPECT_EQ(found.groups[0].space, "Model");
    const std::string layout = found.groups[1].space;
    EXPECT_NE(layout, "Model");
    const std::string json = groupsJson("a \"b\"\xff.dxf", found);
    EXPECT_TRUE(tests::holds(json, "\"file\": \"a \\\"b\\\"\xef\xbf\xbd.dxf\""));
    const std::string model = picture::draw(store, store.modelSpace(), "a<b", "Model", found);
    const std::string sheet = picture::draw(store, store.paperSpace(), "a<b", layout, found);
    for (const inspection::Group& group : found.groups) {
        for (const inspection::Entity& member : group.members) {
            const std::string id = "id=\"h" + member.handle + "\"";
            EXPECT_EQ(model.find(id) != model.npos, group.space == "Model") << id;
            EXPECT_EQ(sheet.find(id) != sheet.npos, group.space == layout) << id;
        }
    }
    EXPECT_TRUE(tests::holds(model, "a&lt;b"));
}

TEST(InspectionReport, AChangeByASaveIsOneLine) {
    Scene scene("(line line line) (circle)");
    scene.after(L"VelmoGROUPNOTACTIVE\nERASE #3 #7\n\n");
    const std::string first = host::formatHandle(tests::entityOf(scene.store(), "INSERT").handle);
    const std::string second =
        host::formatHandle(tests::entityOf(scene.store(), "INSERT", 2).handle);
    const inspection::Inspection before = inspectDrawing(*scene.store().database, false);
    scene.run(L"REGEN\n");
    const std::vector<std::string> lines =
        inspection::changes(before, inspectDrawing(*scene.store().database, false), "the save");
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "the save lowered the count of group " + first + " in Model from 3 to 2",
                         "the save dissolved group " + second +
                             " in Model: nothing stands between its markers"}));
}

}  // namespace
