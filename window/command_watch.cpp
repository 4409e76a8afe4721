// Follows commands through the notifications that applications get.
#include "window/command_watch.h"

#include <string>
#include <utility>

#include "host/editor/run/command_stack.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/runtime.h"
#include "host/store/store.h"

namespace window {
namespace {

constexpr const wchar_t* kGroupingOn = L"VELMOGROUPACTIVE";
constexpr const wchar_t* kGroupingOff = L"VELMOGROUPNOTACTIVE";

AcEditor* editor() { return static_cast<AcEditor*>(acrxSysRegistry()->at(L"AcEditor")); }

}  // namespace

CommandWatch::CommandWatch() { editor()->addReactor(this); }

CommandWatch::~CommandWatch() { editor()->removeReactor(this); }

bool* CommandWatch::modeOfCurrent() {
    const host::Store* store = host::currentStore();
    return store != nullptr ? &m_off[store->serial()] : nullptr;
}

void CommandWatch::commandEnded(const ACHAR* name) {
    m_ended = host::CommandStatus::Done;
    bool* const off = modeOfCurrent();
    if (off != nullptr && name == std::wstring(kGroupingOff)) *off = true;
    if (off != nullptr && name == std::wstring(kGroupingOn)) *off = false;
}

void CommandWatch::pickfirstModified() {
    bool* const off = modeOfCurrent();
    if (off != nullptr && host::sysvarInteger(L"PICKFIRST") == 0) *off = true;
}

std::optional<host::CommandStatus> CommandWatch::takeEnd() {
    return std::exchange(m_ended, std::nullopt);
}

bool CommandWatch::groupingOn() const {
    const host::Store* store = host::currentStore();
    if (store == nullptr || host::sysvarInteger(L"PICKFIRST") == 0) return false;
    const auto off = m_off.find(store->serial());
    return (off == m_off.end() || !off->second) && host::findModuleCommand(kGroupingOn).has_value();
}

}  // namespace window
