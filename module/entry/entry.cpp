// The entry point: how AutoCAD drives the module's life.
#include "boundary.h"
#include "document_data.h"
#include "GroupCommands.h"
#include "grouping_mode.h"
#include "host_services.h"
#include "library.h"
#include "library_attach.h"
#include "lisp_table.h"
#include "pick_reactor.h"
#include "platform.h"
#include "VeLogging.h"
#include "version_resource.h"

namespace {

const wchar_t* const kCommandGroup = L"VelmoGROUP";
const int kNoFunctionCode = -1;

struct CommandRow {
    const wchar_t* name;
    Adesk::Int32 flags;
    AcRxFunctionPtr function;
};

/// A command as the host calls it.
template <void (*work)()>
void guarded() {
    withinBoundary(work);
}

/// The commands in the order of their registration. Only making and dissolving take the pick-first
/// set, and only making asks for a redraw.
const CommandRow kCommands[] = {
    {L"VelmoGROUPMAKE", ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW, guarded<groupMake>},
    {L"VelmoGROUPDELETE", ACRX_CMD_USEPICKSET, guarded<groupDelete>},
    {L"VelmoGROUPREMOVEMEMBER", ACRX_CMD_MODAL, guarded<groupRemoveMember>},
    {L"VelmoGROUPACTIVE", ACRX_CMD_MODAL, guarded<groupingOn>},
    {L"VelmoGROUPNOTACTIVE", ACRX_CMD_MODAL, guarded<groupingOff>},
};
const int kCommandCount = sizeof kCommands / sizeof *kCommands;

/// The one editor reactor, from load to unload; null also when start-up could not make it. It is
/// not reset at the unload, so each start-up has to set it.
KESTpickGroupEnt* G_pPickReactor = nullptr;

AcRxDynamicLinker* dynamicLinker() { return hostService<AcRxDynamicLinker>(L"DynamicLinker"); }

AcEdCommandStack* commandStack() {
    return hostService<AcEdCommandStack>(L"ACAD_REGISTERED_COMMANDS");
}

void registerCommand(const CommandRow& row) {
    AcEdCommandStack* stack = commandStack();
    if (stack == nullptr) return;
    stack->addCommand(kCommandGroup, row.name, row.name, row.flags, row.function, nullptr,
                      kNoFunctionCode, nullptr);
}

void unlock(void* pkt) {
    if (AcRxDynamicLinker* linker = dynamicLinker()) linker->unlockApplication(pkt);
}
void declareMdiAware(void* pkt) {
    if (AcRxDynamicLinker* linker = dynamicLinker()) linker->registerAppMDIAware(pkt);
}

void makePickReactor() {
    G_pPickReactor = nullptr;
    G_pPickReactor = new KESTpickGroupEnt(true);
}

void startLibrary() { initialiseLibrary(L"Corvinstrand", moduleInstance(), false, true); }

void startLogging() {
    createLogging(L"Pelltrix::Corvinstrand", versionString(moduleInstance(), L"FileVersion"));
}

void attachDocumentData() { acDocManager->addReactor(&documentDataManager()); }
void detachDocumentData() { acDocManager->removeReactor(&documentDataManager()); }

void removeCommands() {
    if (AcEdCommandStack* stack = commandStack()) stack->removeGroup(kCommandGroup);
}

void deletePickReactor() { delete G_pPickReactor; }

// The farewell comes first although the removal has happened already.
void sayGoodbye() { acutPrintf(L"%s%s", L"Goodbye\n", L"Removing command group \"VelmoGROUP\"\n"); }

/// Start-up, once, on kInitAppMsg. A step that runs out of memory is left out; the others are done.
void initApplication() {
    for (int i = 0; i < kCommandCount; ++i) {
        withinBoundary([&] { registerCommand(kCommands[i]); });
    }
    withinBoundary(makePickReactor);
    withinBoundary(startLibrary);
    withinBoundary(showGroupingOn);
    withinBoundary(startLogging);
    withinBoundary(attachDocumentData);
}

/// Takes down what initApplication built, once, on kUnloadAppMsg; each step by itself as there.
void unloadApplication() {
    withinBoundary(detachDocumentData);
    withinBoundary(removeCommands);
    withinBoundary(deletePickReactor);
    withinBoundary(destroyLogging);
    withinBoundary(shutDownLibrary);
    withinBoundary(sayGoodbye);
}

void handleMessage(AcRx::AppMsgCode msg, void* pkt) {
    switch (msg) {
        case AcRx::kInitAppMsg:
            withinBoundary([&] { unlock(pkt); });
            withinBoundary([&] { declareMdiAware(pkt); });
            return initApplication();
        case AcRx::kUnloadAppMsg:
            return unloadApplication();
        case AcRx::kLoadDwgMsg:
            defineLispFunctions();
            return;
        case AcRx::kUnloadDwgMsg:
            return undefineLispFunction();
        case AcRx::kInvkSubrMsg:
            return dispatchLispFunction();
        default:
            return;
    }
}

}  // namespace

/// Answers the host's application messages; always kRetOK, also for messages it does not know.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    withinBoundary([&] { handleMessage(msg, pkt); });
    return AcRx::kRetOK;
}
