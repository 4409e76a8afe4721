// Switching grouping on and off: menu items, PICKFIRST, each drawing for itself.
#include "common/scene.h"
#include "host/editor/state/menus.h"

namespace {

using host::Switches;
using tests::kGathering;
using tests::Scene;
using tests::underEachSetting;

const std::string kGroup = "begin(2) line* line* end | ";

TEST(GroupingMode, MenuItemsOfTheFirstMenuGroupFollow) {
    const std::pair<std::vector<std::wstring>, std::string> cases[] = {
        {{}, ""},
        {{L"Other"}, ""},
        {{L"Morvanta"}, "Morvanta"},
        {{L"Pelltrix"}, "Pelltrix"},
        {{L"Pelltrix", L"Morvanta"}, "Morvanta"}};
    for (const auto& [loaded, group] : cases) {
        Scene scene("");
        for (const std::wstring& each : loaded)
            host::loadMenuGroup(each);
        const std::string item = "G" + group + ".ID_GRP_";
        const auto shown = [&](const std::string& menu) {
            return group.empty() ? " |  | " : " |  |  | " + menu;
        };
        const std::string on = item + "ON=~, " + item + "OFF=";
        const std::string off = item + "OFF=~, " + item + "ON=";
        EXPECT_EQ(scene.after(L"VelmoGROUPNOTACTIVE\n"), shown(item + "ON=~, " + off));
        EXPECT_EQ(scene.after(L"VelmoGROUPACTIVE\n"), shown(on));
        EXPECT_EQ(scene.after(L"VelmoGROUPACTIVE\n"), shown(on));
        EXPECT_EQ(scene.after(L"VelmoGROUPNOTACTIVE\n"), shown(off));
    }
}

TEST(GroupingMode, EachDrawingHasItsOwnAndTheMenuShowsTheLast) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line)", settings, L"Pelltrix");
        scene.after(L"VelmoGROUPNOTACTIVE\n");
        scene.session().newDrawing();
        scene.draw("(line line)");
        EXPECT_EQ(scene.click({2}), kGroup + "1 2 3 4 | " + kGathering);
        scene.session().activate(*scene.session().documents.at(0));
        EXPECT_EQ(host::menuItemState(L"Pelltrix.ID_GRP_ON"), L"~");
        EXPECT_EQ(scene.click({2}), kGroup + "2 | ");
        scene.session().activate(*scene.session().documents.at(1));
        EXPECT_EQ(scene.shiftClick({3}), kGroup + " | " + kGathering);
    });
}

}  // namespace
