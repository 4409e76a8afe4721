// A small application for the tests of loading: it prints each message it gets, registers commands,
// reactors and LISP functions, and misbehaves as the environment variable PROBE asks: a list of
// words.
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "arxHeaders.h"

namespace {

bool asked(const char* word) {
    const char* words = std::getenv("PROBE");
    return words != nullptr && std::strstr(words, word) != nullptr;
}

class EditorWatch : public AcEditorReactor {};
class DocumentWatch : public AcApDocManagerReactor {};

EditorWatch editorWatch;
DocumentWatch documentWatch;

/// Prints when the library's static objects go.
struct Farewell {
    ~Farewell() { acutPrintf(L"<gone>"); }
} farewell;

AcEditor* editor() { return AcEditor::cast(acrxSysRegistry()->at(L"AcEditor")); }

void leakCommand() {
    AcDbBlockTable* table = nullptr;
    acdbHostApplicationServices()->workingDatabase()->getSymbolTable(table, AcDb::kForRead);
}

void throwCommand() { throw 1; }

/// Prints the types of its arguments.
int typesFunction() {
    acutPrintf(L"types:");
    for (const resbuf* each = acedGetArgs(); each != nullptr; each = each->rbnext)
        acutPrintf(L" %d", static_cast<int>(each->restype));
    acutPrintf(L"\n");
    acutRelRb(acedGetArgs());
    acedRetVoid();
    return RSRSLT;
}

int failingFunction() { return RTERROR; }

int leakFunction() {
    acutBuildList(RTSHORT, 1, 0);
    return RTNORM;
}

void start(void* pkt) {
    auto* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker"));
    if (!asked("locked")) linker->unlockApplication(pkt);
    if (!asked("single")) linker->registerAppMDIAware(pkt);
    acedRegCmds->addCommand(L"PROBE", L"PROBELEAK", L"PROBELEAK", ACRX_CMD_MODAL, leakCommand);
    acedRegCmds->addCommand(L"PROBE", L"PROBETHROW", L"PROBETHROW", ACRX_CMD_MODAL, throwCommand);
    editor()->addReactor(&editorWatch);
    acDocManager->addReactor(&documentWatch);
    if (asked("early-lisp")) acedDefun(L"ProbeTypes", 1);
}

void stop() {
    if (!asked("keep-commands")) acedRegCmds->removeGroup(L"PROBE");
    if (!asked("keep-documents")) acDocManager->removeReactor(&documentWatch);
    if (!asked("keep-editor")) editor()->removeReactor(&editorWatch);
}

void define() {
    acedDefun(L"ProbeTypes", 1);
    acedRegFunc(typesFunction, 1);
    acedDefun(L"ProbeMessage", 2);
    acedDefun(L"ProbeFails", 3);
    acedRegFunc(failingFunction, 3);
    acedDefun(L"ProbeLeaks", 4);
    acedRegFunc(leakFunction, 4);
}

void undefine() {
    if (asked("keep-lisp")) return;
    acedUndef(L"ProbeTypes", 1);
    acedUndef(L"ProbeMessage", 2);
    acedUndef(L"ProbeFails", 3);
    acedUndef(L"ProbeLeaks", 4);
}

const ACHAR* currentFile() {
    AcApDocument* document = acDocManager->curDocument();
    return document != nullptr ? document->fileName() : L"-";
}

}  // namespace

extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode acrxEntryPoint(
    AcRx::AppMsgCode message, void* pkt) {
    const ACHAR* file = currentFile();
    const ACHAR* slash = std::wcsrchr(file, L'/');
    acutPrintf(L"<%d %s>", static_cast<int>(message), slash != nullptr ? slash + 1 : file);
    if (asked("abort") && std::wcsstr(file, L"dies") != nullptr) std::abort();
    if (message == AcRx::kInitAppMsg) start(pkt);
    if (message == AcRx::kUnloadAppMsg) stop();
    if (message == AcRx::kLoadDwgMsg) define();
    if (message == AcRx::kUnloadDwgMsg) undefine();
    if (message == AcRx::kInvkSubrMsg) acutPrintf(L"code %d\n", acedGetFunCode());
    if (message == AcRx::kLoadDwgMsg && asked("refuse")) return AcRx::kRetError;
    return AcRx::kRetOK;
}
