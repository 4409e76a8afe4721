// Calling the LISP functions that modules defined, and the interface they define them with.
#include "host/application/lisp_calls.h"

#include "host/application/session_impl.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/control/guarded_call.h"
#include "host/editor/state/active_command.h"
#include "host/objectarx/lisp_functions.h"
#include "host/scripting/lisp_reader.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

constexpr int kHighestCode = 32767;

/// Names of the module that calls now, for messages of faults.
std::string callerName(const Session::Impl& session) {
    const Module* module = session.modules.caller();
    return module != nullptr ? module->name : "an application";
}

/// Session and document for a definition; null, and a fault, where LISP does not exist.
Session::Impl* sessionWithLisp(const char* call) {
    Session* session = currentSession();
    if (session == nullptr) return nullptr;
    Session::Impl& impl = session->impl();
    const AcRx::AppMsgCode message = impl.modules.message();
    if (message == AcRx::kInitAppMsg || message == AcRx::kUnloadAppMsg) {
        reportModuleFault(std::string(call) + ": called during " + messageName(message) + " by " +
                          callerName(impl) + ", when no LISP may be assumed");
        return nullptr;
    }
    if (impl.documents.current() == nullptr) {
        reportModuleFault(std::string(call) + ": called while no drawing is current");
        return nullptr;
    }
    return &impl;
}

/// Runs the function; the ADS code of a direct one, RTNORM for one that got kInvkSubrMsg.
int invoke(Session::Impl& session, const LispFunction& function, const std::string& where) {
    Module* owner = function.owner;
    if (function.direct == nullptr) {
        return session.modules.send(*owner, AcRx::kInvkSubrMsg) == AcRx::kRetError ? RTERROR
                                                                                   : RTNORM;
    }
    int (*const direct)() = function.direct;
    int answer = RTERROR;
    const Modules::Calling calling(session.modules, owner);
    guardedCall(where, [&] { answer = direct(); });
    return answer;
}

}  // namespace

CommandStatus Session::callLisp(const std::wstring& expression) {
    takeProblem();
    const CommandStatus status = m_impl->callLisp(expression);
    if (status != CommandStatus::Done) m_impl->reportCommand({}, expression, status);
    return status;
}

CommandStatus Session::Impl::callLisp(const std::wstring& expression) {
    LispCall call;
    Outcome outcome;
    if (!readLispCall(expression, call, outcome.error)) {
        outcome.error = toUtf8(expression) + ": " + outcome.error;
        return fail(outcome);
    }
    HostDocument* document = documents.current();
    const LispFunction* function = document != nullptr ? document->lisp.find(call.name) : nullptr;
    if (function == nullptr) {
        outcome.error = "no LISP function " + toUtf8(call.name) + " is defined in this drawing";
        fail(outcome);
        return CommandStatus::Unknown;
    }
    Invocation invocation;
    invocation.code = function->code;
    invocation.arguments = call.arguments.release();
    markHostOwned(invocation.arguments);
    const std::string where = "(" + toUtf8(call.name) + ")";
    const LispFunction copy = *function;  // the function may undefine itself
    int answer = RTERROR;
    {
        const LispCalls::Scope scope(lisp, invocation);
        answer = invoke(*this, copy, where);
    }
    freeList(invocation.arguments);
    modules.unloadRefusing();
    if (answer == RTERROR) {
        outcome.error = where + " reported a LISP error";
        return fail(outcome);
    }
    if (!invocation.returnsVoid) print(L"nil");
    return CommandStatus::Done;
}

}  // namespace host

int acedDefun(const ACHAR* name, int code) {
    if (host::callFails("acedDefun")) return 0;
    host::Session::Impl* session = host::sessionWithLisp("acedDefun");
    if (session == nullptr) return 0;
    host::Module* owner = session->modules.caller();
    if (owner == nullptr || name == nullptr || *name == 0 || code < 0 ||
        code > host::kHighestCode) {
        return 0;
    }
    session->documents.current()->lisp.define(name, owner, code);
    return RTNORM;
}

int acedUndef(const ACHAR* name, int) {
    if (host::callFails("acedUndef")) return RTERROR;
    host::Session::Impl* session = host::sessionWithLisp("acedUndef");
    if (session == nullptr || name == nullptr) return RTERROR;
    return session->documents.current()->lisp.remove(name) ? RTNORM : RTERROR;
}

int acedRegFunc(int (*function)(), int code) {
    if (host::callFails("acedRegFunc")) return RTERROR;
    host::Session::Impl* session = host::sessionWithLisp("acedRegFunc");
    if (session == nullptr || function == nullptr) return RTERROR;
    host::Module* owner = session->modules.caller(reinterpret_cast<const void*>(function));
    host::LispTable& lisp = session->documents.current()->lisp;
    return owner != nullptr && lisp.bindDirect(owner, code, function) ? RTNORM : RTERROR;
}

int acedGetFunCode() {
    if (host::callFails("acedGetFunCode")) return RTERROR;
    host::Session* session = host::currentSession();
    const host::Invocation* call = session != nullptr ? session->impl().lisp.current() : nullptr;
    return call != nullptr ? call->code : RTERROR;
}

resbuf* acedGetArgs() {
    host::Session* session = host::currentSession();
    const host::Invocation* call = session != nullptr ? session->impl().lisp.current() : nullptr;
    return call != nullptr ? call->arguments : nullptr;
}

int acedRetVoid() {
    if (host::callFails("acedRetVoid")) return RTERROR;
    host::Session* session = host::currentSession();
    host::Invocation* call = session != nullptr ? session->impl().lisp.current() : nullptr;
    if (call == nullptr) return RTERROR;
    call->returnsVoid = true;
    return RTNORM;
}
