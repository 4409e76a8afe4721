// A user's whole session on a drawing that nobody here made, by script.
#include <filesystem>

#include "common/scene.h"

namespace {

using tests::kGathering;
using tests::Scene;

/// Debian's librecad-data; ./check installs it.
constexpr const char* kDrawing = "/usr/share/librecad/library/elektro/coil/L7.dxf";

/// VelmoGROUPMAKE as it speaks when three entities are picked one by one.
const std::string kMade =
    "\nSelect entities to form an VelmoGroup: \nSelect objects: \n1 found\nSelect objects: \n1 "
    "found, 2 total\nSelect objects: \n1 found, 3 total\nSelect objects: ";

TEST(Session, TwoGroupsPickUngroupRemoveSaveAndLoad) {
    ASSERT_TRUE(std::filesystem::exists(kDrawing)) << "install Debian's librecad-data";
    tests::underEachSetting([](const host::Switches& settings) {
        Scene scene("", settings);
        ASSERT_TRUE(scene.session().openDrawing(kDrawing));
        ASSERT_EQ(scene.state(), "arc line line line point point |  | ");
        EXPECT_EQ(scene.after(L"VelmoGROUPMAKE #2 #3 #4\n\n"),
                  "arc point point begin(3) line* line* line* end |  | " + kMade);
        const std::string two = "begin(3) line* line* line* end begin(3) arc* point* point* end | ";
        EXPECT_EQ(scene.after(L"VelmoGROUPMAKE #1 #2 #3\n\n"), two + " | " + kMade);
        EXPECT_EQ(scene.after(L"PICK #3\n"), two + "1 3 4 2 5 | " + kGathering);
        scene.after(L"VelmoGROUPDELETE\n");
        EXPECT_EQ(scene.order(), "line line line begin(3) arc* point* point* end");
        scene.after(L"VelmoGROUPREMOVEMEMBER #6\n\n");
        const std::string last = "line line line begin(2) arc* point* end point | ";
        EXPECT_EQ(scene.order() + " | ", last);
        scene.saveAndReopen();
        EXPECT_EQ(scene.click({6}), last + "4 6 5 7 | " + kGathering);
        EXPECT_EQ(scene.shiftClick({5}).substr(0, last.size() + 1), last + " ");
    });
}

}  // namespace
