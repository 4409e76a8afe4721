// Attached editor reactors and the delivery of notifications to them.
#include "host/editor/state/notify.h"

#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/guarded_call.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/document_state.h"
#include "host/objectarx/editor.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// A handler that causes its own notification again and again is stopped at this depth.
constexpr int kDeepest = 16;

int depth = 0;

/// Records the notification and calls the handlers. Those attached or detached by a handler count
/// from the next notification on, except that a detached one is not called any more. Without an
/// open drawing nobody is called: handlers may count on a current document.
template <typename Call>
void send(const std::wstring& text, Call call) {
    if (currentDocumentState() == nullptr) return;
    const std::string where = toUtf8(text);
    if (depth >= kDeepest) {
        reportModuleFault(where + ": handlers cause this notification without end");
        return;
    }
    recordEffect(EffectKind::Notification, text);
    ++depth;
    editorReactors().forEach(
        [&](AcRxEventReactor& reactor) { guardedCall(where, [&] { call(reactor); }); });
    --depth;
}

using CommandHandler = void (AcEditorReactor::*)(const ACHAR*);

void sendCommand(const wchar_t* event, const std::wstring& name, CommandHandler handler) {
    send(std::wstring(event) + L" " + name, [&](AcRxEventReactor& reactor) {
        AcEditorReactor* editorReactor = AcEditorReactor::cast(&reactor);
        if (editorReactor != nullptr) (editorReactor->*handler)(name.c_str());
    });
}

}  // namespace

void notifyCommandWillStart(const std::wstring& upperName) {
    sendCommand(L"commandWillStart", upperName, &AcEditorReactor::commandWillStart);
}

void notifyCommandEnded(const std::wstring& upperName) {
    sendCommand(L"commandEnded", upperName, &AcEditorReactor::commandEnded);
}

void notifyCommandCancelled(const std::wstring& upperName) {
    sendCommand(L"commandCancelled", upperName, &AcEditorReactor::commandCancelled);
}

void notifyCommandFailed(const std::wstring& upperName) {
    sendCommand(L"commandFailed", upperName, &AcEditorReactor::commandFailed);
}

void notifyPickfirstModified() {
    send(L"pickfirstModified", [](AcRxEventReactor& reactor) {
        AcEditorReactor* editorReactor = AcEditorReactor::cast(&reactor);
        if (editorReactor != nullptr) editorReactor->pickfirstModified();
    });
}

void notifyBeginSave(AcDbDatabase* database, const std::wstring& intendedName) {
    send(L"beginSave " + intendedName,
         [&](AcRxEventReactor& reactor) { reactor.beginSave(database, intendedName.c_str()); });
}

void notifySaveComplete(AcDbDatabase* database, const std::wstring& actualName) {
    send(L"saveComplete " + actualName,
         [&](AcRxEventReactor& reactor) { reactor.saveComplete(database, actualName.c_str()); });
}

bool inputAllowed(const char* call) {
    if (depth == 0) return true;
    reportModuleFault(std::string(call) + ": input cannot be asked for in a notification");
    return false;
}

/// Never destroyed: reactors of a module may be deleted while the process ends.
ReactorList<AcRxEventReactor>& editorReactors() {
    static auto& instance = *new ReactorList<AcRxEventReactor>;
    return instance;
}

void idle() {
    constexpr int kMostRounds = 16;
    DocumentState* state = currentDocumentState();
    if (!activeCommand().empty() || state == nullptr) return;
    for (int round = 0; state->notificationDue; ++round) {
        state->notificationDue = false;
        if (round == kMostRounds) {
            reportModuleFault("pickfirstModified: handlers cause this notification without end");
            return;
        }
        notifyPickfirstModified();
    }
}

}  // namespace host

using namespace host;

AcRxEventReactor::~AcRxEventReactor() {
    if (!editorReactors().contains(this)) return;
    editorReactors().detach(this);
    reportModuleFault("an editor reactor was deleted while it was attached");
}

void AcRxEventReactor::beginSave(AcDbDatabase*, const ACHAR*) {}
void AcRxEventReactor::saveComplete(AcDbDatabase*, const ACHAR*) {}
void AcEditorReactor::commandWillStart(const ACHAR*) {}
void AcEditorReactor::commandEnded(const ACHAR*) {}
void AcEditorReactor::commandCancelled(const ACHAR*) {}
void AcEditorReactor::commandFailed(const ACHAR*) {}
void AcEditorReactor::pickfirstModified() {}

void AcRxEvent::addReactor(AcRxEventReactor* reactor) const {
    recordEffect(EffectKind::Registration, L"AcEditor::addReactor");
    if (reactor != nullptr) editorReactors().attach(reactor);
}

void AcRxEvent::removeReactor(AcRxEventReactor* reactor) const {
    recordEffect(EffectKind::Registration, L"AcEditor::removeReactor");
    editorReactors().detach(reactor);
}
