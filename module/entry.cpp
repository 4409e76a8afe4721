// The entry point: how AutoCAD drives the module's life.
#include "entry.h"

#include <new>

#include "boundary.h"
#include "document_data.h"
#include "GroupCommands.h"
#include "grouping_mode.h"
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

struct Command {
    const wchar_t* name;
    Adesk::Int32 flags;
    AcRxFunctionPtr function;
};

/// A command as the host calls it.
template <void (*work)()>
void command() {
    withinBoundary(work);
}

/// The commands in the order of their registration. Only making and dissolving take the pick-first
/// set, and only making asks for a redraw.
constexpr Command kCommands[] = {
    {L"VelmoGROUPMAKE", ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW, command<groupMake>},
    {L"VelmoGROUPDELETE", ACRX_CMD_USEPICKSET, command<groupDelete>},
    {L"VelmoGROUPREMOVEMEMBER", ACRX_CMD_MODAL, command<groupRemoveMember>},
    {L"VelmoGROUPACTIVE", ACRX_CMD_MODAL, command<groupingOn>},
    {L"VelmoGROUPNOTACTIVE", ACRX_CMD_MODAL, command<groupingOff>},
};

/// The one editor reactor, from load to unload.
KESTpickGroupEnt* G_pPickReactor = nullptr;

/// The host's service under `key`, or null when there is none of the expected class.
template <typename T>
T* service(const wchar_t* key) {
    AcRxObject* object = acrxSysRegistry()->at(key);
    if (object == nullptr || !object->isA()->isDerivedFrom(T::desc())) return nullptr;
    return static_cast<T*>(object);
}

AcRxDynamicLinker* dynamicLinker() { return service<AcRxDynamicLinker>(L"DynamicLinker"); }

AcEdCommandStack* commandStack() { return service<AcEdCommandStack>(L"ACAD_REGISTERED_COMMANDS"); }

void registerCommand(const Command& command) {
    AcEdCommandStack* stack = commandStack();
    if (stack == nullptr) return;
    stack->addCommand(kCommandGroup, command.name, command.name, command.flags, command.function,
                      nullptr, kNoFunctionCode, nullptr);
}

void declareToLinker(void* pkt) {
    if (AcRxDynamicLinker* linker = dynamicLinker()) linker->unlockApplication(pkt);
    if (AcRxDynamicLinker* linker = dynamicLinker()) linker->registerAppMDIAware(pkt);
}

/// The reactor, attached; null when there is no memory for it: the module then goes on without.
KESTpickGroupEnt* makePickReactor() {
    try {
        return new KESTpickGroupEnt(true);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
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

void initApplication() {
    for (const Command& command : kCommands) {
        registerCommand(command);
    }
    G_pPickReactor = makePickReactor();
    initialiseLibrary(L"Corvinstrand", moduleInstance(), false, true);
    showGroupingOn();
    createLogging(L"Pelltrix::Corvinstrand", versionString(moduleInstance(), L"FileVersion"));
    acDocManager->addReactor(&documentDataManager());
}

void unloadApplication() {
    acDocManager->removeReactor(&documentDataManager());
    if (AcEdCommandStack* stack = commandStack()) stack->removeGroup(kCommandGroup);
    delete G_pPickReactor;
    destroyLogging();
    shutDownLibrary();
    // The farewell comes first although the removal has happened already.
    acutPrintf(L"%s%s", L"Goodbye\n", L"Removing command group \"VelmoGROUP\"\n");
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    withinBoundary([&] { handleMessage(msg, pkt); });
    return AcRx::kRetOK;
}
