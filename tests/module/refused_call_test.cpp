// Single calls that the host refuses: what is reported, and what stays as it was.
#include "common/scene.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "host/editor/state/document_state.h"

namespace {

using tests::Scene;

struct Refused {
    const wchar_t* script;
    host::FaultPlan plan;
    const char* source;  ///< with the thousands of the line where these tell the file
    const char* call;    ///< as it stands in the source
};

const wchar_t* const kMake = L"VelmoGROUPMAKE #3\n\n";
const wchar_t* const kDelete = L"VelmoGROUPDELETE #2\n\n";
const wchar_t* const kRemove = L"VelmoGROUPREMOVEMEMBER #2\n\n";

/// "SOURCE CALL" of each report, the thousands of the line behind the source's name.
std::string reports() {
    std::string text;
    for (const std::wstring& box : host::effectTexts(host::EffectKind::AlertBox)) {
        const auto after = [&](const std::wstring& word) {
            return box.substr(box.find(word) + word.size());
        };
        const std::wstring source = after(L"\nFile : <"), line = after(L"\nLine : ");
        const int thousands = std::stoi(line) / 1000;
        const std::wstring call = after(L"\nAssertion : <");
        text += host::toUtf8(source.substr(0, source.find(L'>'))) +
                (thousands > 0 ? std::to_string(thousands) : "") + ' ' +
                host::toUtf8(call.substr(0, call.find(L">\n"))) + '\n';
    }
    return text;
}

TEST(RefusedCall, IsReportedAsItStandsInTheSource) {
    const char* const kLength = "acedSSLength(selection, &length) == RTNORM";
    const char* const kTable =
        "database->getSymbolTable(blocks.receive(), AcDb::kForRead) == Acad::eOk";
    const char* const kFree = "selection.free() == RTNORM";
    const Refused cases[] = {
        {kMake,
         {1, false, "AcDbBlockReference::appendAttribute"},
         "Marker",
         "reference.appendAttribute(attribute.get()) == Acad::eOk"},
        {kMake,
         {1, false, "AcDbDatabase::deepCloneObjects"},
         "GroupForming",
         "database->deepCloneObjects(sources.toClone, space, clones, false) == Acad::eOk"},
        {kMake, {3, false, "AcDbDatabase::getSymbolTable"}, "MarkerBlock", kTable},
        {kMake, {9, false, "AcDbDatabase::getSymbolTable"}, "Marker", kTable},
        {kMake, {1, false, "acedSSLength"}, "GroupCommands1", kLength},
        {kMake,
         {1, false, "acedRedraw"},
         "GroupCommands1",
         "acedRedraw(entity, static_cast<int>(mode)) == RTNORM"},
        {kMake,
         {1, false, "acedSSSetFirst"},
         "GroupCommands1",
         "acedSSSetFirst(freed, unused) == RTNORM"},
        {kDelete, {1, false, "acedSSLength"}, "GroupCommands2", kLength},
        {kDelete, {1, false, "acedSSFree"}, "GroupCommands2", kFree},
        {kRemove, {1, false, "acedSSFree"}, "GroupCommands3", kFree},
        {L"REGEN\n", {1, false, "acedSSFree"}, "GroupCommands4", kFree},
    };
    for (const Refused& each : cases) {
        host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", 1);
        Scene scene("(line) line");
        host::setFaultPlan(each.plan);
        scene.after(each.script);
        host::setFaultPlan({});
        EXPECT_EQ(reports(), std::string(each.source) + ' ' + each.call + '\n')
            << each.plan.onlyCalls;
        if (each.plan.onlyCalls == "acedSSFree") scene.expectFault("selection set");
        host::resetWindows();
    }
}

/// The definition's position is set, not left to what a new one has.
TEST(RefusedCall, EvenThePlaceOfTheFirstDefinitionIsOne) {
    host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", 1);
    Scene scene("line");
    host::setFaultPlan({1, false, "AcDbText::setPosition"});
    scene.after(L"VelmoGROUPMAKE #1\n\n");
    host::setFaultPlan({});
    EXPECT_EQ(reports(),
              "MarkerBlock definition->setPosition(AcGePoint3d(0.0, y, 0.0)) == Acad::eOk\n");
    host::resetWindows();
}

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
