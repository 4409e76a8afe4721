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

constexpr const wchar_t* kCommandGroup = L"VelmoGROUP";
constexpr int kNoFunctionCode = -1;

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
constexpr CommandRow kCommands[] = {
    {L"VelmoGROUPMAKE", ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW, guarded<groupMake>},
    {L"VelmoGROUPDELETE", ACRX_CMD_USEPICKSET, guarded<groupDelete>},
    {L"VelmoGROUPREMOVEMEMBER", ACRX_CMD_MODAL, guarded<groupRemoveMember>},
    {L"VelmoGROUPACTIVE", ACRX_CMD_MODAL, guarded<groupingOn>},
    {L"VelmoGROUPNOTACTIVE", ACRX_CMD_MODAL, guarded<groupingOff>},
};

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

void declareToLinker(void* pkt) {
    if (AcRxDynamicLinker* linker = dynamicLinker()) linker->unlockApplication(pkt);
    if (AcRxDynamicLinker* linker = dynamicLinker()) linker->registerAppMDIAware(pkt);
}

/// Makes the reactor, attached. Whatever is thrown, the module goes on without one.
void makePickReactor() {
    G_pPickReactor = nullptr;
    withinBoundary([] { G_pPickReactor = new KESTpickGroupEnt(true); });
}

/// Start-up, once, on kInitAppMsg.
void initApplication() {
    for (const CommandRow& row : kCommands) {
        registerCommand(row);
    }
    makePickReactor();
    initialiseLibrary(L"Corvinstrand", moduleInstance(), false, true);
    showGroupingOn();
    createLogging(L"Pelltrix::Corvinstrand", versionString(moduleInstance(), L"FileVersion"));
    acDocManager->addReactor(&documentDataManager());
}

/// Takes down what initApplication built, once, on kUnloadAppMsg.
void unloadApplication() {
    acDocManager->removeReactor(&documentDataManager());
    if (AcEdCommandStack* stack = commandStack()) stack->removeGroup(kCommandGroup);
    delete G_pPickReactor;
    destroyLogging();
    shutDownLibrary();
    // The farewell comes first although the removal has happened already.
    acutPrintf(L"%s%s", L"Goodbye\n", L"Removing command group \"VelmoGROUP\"\n");
}

void handleMessage(AcRx::AppMsgCode msg, void* pkt) {
    switch (msg) {
        case AcRx::kInitAppMsg:
            declareToLinker(pkt);
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
