// What the module says when calls of the host fail, and where it says it under which switch.
//
// Each report is a message box, and files are watched: this is for the Windows that is stood in.
#include <fstream>
#include <functional>
#include <set>

#include "common/scene.h"
#include "common/scratch.h"
#include "host/control/accounting.h"
#include "host/control/fake_windows.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "host/editor/selection/selection_sets.h"
#include "host/editor/state/menus.h"

namespace {

using host::EffectKind;
using host::effectTexts;
using tests::Scene;
using Lines = std::set<std::string>;

/// A per-user switch for as long as it lives.
class Switch {
  public:
    explicit Switch(const wchar_t* name) {
        host::setRegistryDword(host::moduleRegistryKey(), name, 1);
    }
    ~Switch() { host::resetWindows(); }
};

/// "SOURCE CALL" of a report.
std::string reportLine(const std::wstring& box) {
    const auto after = [&](const std::wstring& word) {
        return box.substr(box.find(word) + word.size());
    };
    const std::wstring source = after(L"\nFile : <"), call = after(L"\nAssertion : <");
    return host::toUtf8(source.substr(0, source.find(L'>'))) + ' ' +
           host::toUtf8(call.substr(0, call.find(L">\n")));
}

/// What a user does; calls of the host fail in `script` alone.
struct Work {
    const char* words;
    const wchar_t* before;
    const wchar_t* script;
    const char* file = "";  ///< drawing in place of `words`
    bool andAllLater = false;
};

constexpr Work kWorks[] = {
    {"(line) line", L"", L"VelmoGROUPMAKE #2 #4\n\n"},
    {"line", L"SETVAR TILEMODE 0\nLINE 1,1 2,2\n\n", L"VelmoGROUPMAKE ALL\n\n"},
    {"line", L"", L"VelmoGROUPMAKE ALL\n\n", "", true},
    {"", L"", L"VelmoGROUPMAKE #1 #2 #4\n\nVelmoGROUPMAKE #3\n\nREGEN\n", "mixed_members.dxf"},
    {"", L"", L"VelmoGROUPMAKE ALL\n\n4,5\n", "no_point.dxf"},
    {"(line line)", L"", L"VelmoGROUPREMOVEMEMBER #2 #3\n\n"},
    {"(line)", L"", L"VelmoGROUPDELETE #2\n\n"},
    {"(line)", L"PICK #2\n", L"VelmoGROUPDELETE\n"},
    {"(line line) (line)", L"VelmoGROUPNOTACTIVE\nERASE #2 #6\n\n", L"REGEN\n"},
};

/// A printed text as one line; empty for those that tell of a typed answer.
std::string printedLine(const std::wstring& text) {
    if (text.find_first_of(L"\"<") != text.npos) return {};
    std::string line;
    for (const char c : host::toUtf8(text))
        line += c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c);
    return "> " + line + '|';
}

/// What one run with a failing call adds; false when that call was not reached.
bool gather(const Work& work, long failAt, Lines& lines) {
    const Switch reports(L"AssertStartup");
    Scene scene(work.words);
    if (*work.file != 0)
        scene.session().openDrawing(TESTS_FOLDER + std::string("/module/") + work.file);
    scene.after(work.before);
    host::setFaultPlan({failAt, work.andAllLater, ""});
    scene.after(work.script);
    const bool hit = host::faultsInjected() > 0;
    host::setFaultPlan({});
    for (const std::wstring& text : effectTexts(EffectKind::CommandLine))
        lines.insert(printedLine(text));
    for (const std::wstring& box : effectTexts(EffectKind::AlertBox))
        lines.insert(reportLine(box));
    host::resetSelectionSets();  // what stays behind a failure is another test's question
    host::clearModuleFaults();
    return hit;
}

TEST(Diagnostics, EveryTextAndReportIsAsTheListHasIt) {
    Lines lines;
    for (const Work& work : kWorks) {
        for (long failAt = 1; gather(work, failAt, lines); ++failAt) {
        }
    }
    lines.erase("");
    Lines expected;
    std::ifstream list(TESTS_FOLDER "/module/texts_and_reports.txt");
    for (std::string line; std::getline(list, line);) {
        if (line.rfind("//", 0) != 0) expected.insert(line);
    }
    std::vector<std::string> onOneSide;
    std::set_symmetric_difference(lines.begin(), lines.end(), expected.begin(), expected.end(),
                                  std::back_inserter(onOneSide));
    EXPECT_EQ(onOneSide, std::vector<std::string>());
}

/// Effects beyond the drawing and the command line, of a day's work with the module.
std::vector<std::wstring> outside() {
    {
        Scene scene("(line line) circle");
        host::clearEffects();
        EXPECT_EQ(scene.session().runScript(
                      L"VelmoGROUPMAKE ALL\n\nPICK 1,0\nPICK NONE\nVelmoGROUPREMOVEMEMBER 1,0\n\n"
                      L"VelmoGROUPDELETE 2,0\n\nVelmoGROUPNOTACTIVE\nVelmoGROUPACTIVE\n"
                      L"(VelmoGroupVersion)\n"),
                  host::CommandStatus::Done);
        scene.session().modules.unload(tests::kModule);
    }
    std::vector<std::wstring> texts;
    for (const EffectKind kind :
         {EffectKind::AlertBox, EffectKind::DebugOutput, EffectKind::StandardOutput,
          EffectKind::RegistryWrite, EffectKind::FileWrite}) {
        for (const std::wstring& text : effectTexts(kind))
            texts.push_back(text);
    }
    return texts;
}

TEST(Diagnostics, OrdinaryWorkFailsNoCheckAndStaysInTheDrawing) {
    Lines lines;
    for (const Work& work : kWorks)
        gather(work, 0, lines);
    for (const std::string& line : lines)
        EXPECT_TRUE(line.empty() || line[0] == '>') << line;
    EXPECT_EQ(outside(), std::vector<std::wstring>());
    const Switch assertStartup(L"AssertStartup");
    EXPECT_EQ(outside(), std::vector<std::wstring>());
}

/// What `act` makes the module do, in order; of files only the end of the name.
std::wstring inOrder(const std::function<void()>& act) {
    host::clearEffects();
    act();
    std::wstring text;
    for (const host::Effect& effect : host::effects()) {
        const std::size_t folder = effect.text.rfind(L'\\');
        const bool named = effect.kind == EffectKind::FileWrite && folder != std::wstring::npos;
        text += L"\n" + (named ? effect.text.substr(folder) : effect.text);
    }
    return text;
}

TEST(Diagnostics, LoadAndUnloadGoInOrder) {
    Scene scene("");
    scene.session().modules.unload(tests::kModule);
    const Switch debugStartup(L"DebugStartup");
    const tests::ScratchFolder folder;
    host::setEnvironment(L"TEMP", host::fromUtf8(folder.path().string()));
    host::loadMenuGroup(L"Pelltrix");
    EXPECT_EQ(inOrder([&] { scene.session().modules.load(MODULE_FILE); }),
              L"\nkInitAppMsg VelmoGroup.arx\nunlockApplication\nregisterAppMDIAware"
              L"\naddCommand VelmoGROUPMAKE\naddCommand VelmoGROUPDELETE"
              L"\naddCommand VelmoGROUPREMOVEMEMBER\naddCommand VelmoGROUPACTIVE"
              L"\naddCommand VelmoGROUPNOTACTIVE\nAcEditor::addReactor"
              L"\nDebugStartup\nAssertStartup\nGPelltrix.ID_GRP_ON=~"
              L"\nAcApDocManager::addReactor\nkLoadDwgMsg VelmoGroup.arx");
    scene.session().callLisp(L"(VelmoGroupVersion)");
    EXPECT_EQ(inOrder([&] { scene.session().modules.unload(tests::kModule); }),
              L"\nkUnloadDwgMsg VelmoGroup.arx\nkUnloadAppMsg VelmoGroup.arx"
              L"\nAcApDocManager::removeReactor\nremoveGroup VelmoGROUP\nAcEditor::removeReactor"
              L"\n\\VelmoGroup.arx.log\nGoodbye\nRemoving command group \"VelmoGROUP\"\n");
}

}  // namespace
