// Calling the LISP functions that modules defined, and the interface they define them with.
#include "host/application/session.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/control/scoped_value.h"
#include "host/editor/state/active_command.h"
#include "host/objectarx/lisp_functions.h"
#include "host/scripting/lisp_reader.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

constexpr int kHighestCode = 32767;

/// Names of the module that calls now, for messages of faults.
std::string callerName(const Session& session) {
    const Module* module = session.modules.caller();
    return module != nullptr ? module->name : "an application";
}

/// Session and document for a definition; null, and a fault, where LISP does not exist.
Session* sessionWithLisp(const char* call) {
    Session* session = currentSession();
    if (session == nullptr) return nullptr;
    const AcRx::AppMsgCode message = session->modules.message();
    if (message == AcRx::kInitAppMsg || message == AcRx::kUnloadAppMsg) {
        reportModuleFault(std::string(call) + ": called during " + messageName(message) + " by " +
                          callerName(*session) + ", when no LISP may be assumed");
        return nullptr;
    }
    if (session->documents.current() == nullptr) {
        reportModuleFault(std::string(call) + ": called while no drawing is current");
        return nullptr;
    }
    return session;
}

/// Runs the function; the ADS code of a direct one, RTNORM for one that got kInvkSubrMsg.
int invoke(Modules& modules, const LispFunction& function, const std::string& where) {
    Module& owner = *function.owner;
    if (function.direct == nullptr)
        return modules.send(owner, AcRx::kInvkSubrMsg) == AcRx::kRetError ? RTERROR : RTNORM;
    int answer = RTERROR;
    modules.call(owner, where, [&] { answer = function.direct(); });
    return answer;
}

/// The call that the module is answering, or null.
Invocation* currentInvocation() {
    const Session* session = currentSession();
    return session != nullptr ? session->invocation : nullptr;
}

}  // namespace

CommandStatus Session::callLisp(const std::wstring& expression) {
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
    Invocation started;
    started.code = function->code;
    started.arguments = call.arguments.release();
    markHostOwned(started.arguments);
    const std::string where = "(" + toUtf8(call.name) + ")";
    const LispFunction copy = *function;  // the function may undefine itself
    int answer = RTERROR;
    {
        const ScopedValue<Invocation*> current(invocation, &started);
        answer = invoke(modules, copy, where);
    }
    freeList(started.arguments);
    modules.unloadRefusing();
    if (answer == RTERROR) {
        outcome.error = where + " reported a LISP error";
        return fail(outcome);
    }
    if (!started.returnsVoid) print(L"nil");
    return CommandStatus::Done;
}

}  // namespace host

int acedDefun(const ACHAR* name, int code) {
    if (host::callFails("acedDefun")) return 0;
    host::Session* session = host::sessionWithLisp("acedDefun");
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
    host::Session* session = host::sessionWithLisp("acedUndef");
    if (session == nullptr || name == nullptr) return RTERROR;
    return session->documents.current()->lisp.remove(name) ? RTNORM : RTERROR;
}

int acedRegFunc(int (*function)(), int code) {
    if (host::callFails("acedRegFunc")) return RTERROR;
    host::Session* session = host::sessionWithLisp("acedRegFunc");
    if (session == nullptr || function == nullptr) return RTERROR;
    host::Module* owner = session->modules.caller(reinterpret_cast<const void*>(function));
    host::LispTable& lisp = session->documents.current()->lisp;
    return owner != nullptr && lisp.bindDirect(owner, code, function) ? RTNORM : RTERROR;
}

int acedGetFunCode() {
    if (host::callFails("acedGetFunCode")) return RTERROR;
    const host::Invocation* call = host::currentInvocation();
    return call != nullptr ? call->code : RTERROR;
}

resbuf* acedGetArgs() {
    const host::Invocation* call = host::currentInvocation();
    return call != nullptr ? call->arguments : nullptr;
}

int acedRetVoid() {
    if (host::callFails("acedRetVoid")) return RTERROR;
    host::Invocation* call = host::currentInvocation();
    if (call == nullptr) return RTERROR;
    call->returnsVoid = true;
    return RTNORM;
}
