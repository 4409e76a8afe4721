// Defines, undefines and dispatches the AutoLISP functions of the module.
#include "lisp_table.h"

#include <iterator>

#include "boundary.h"
#include "message_service.h"
#include "platform.h"

namespace {

struct LispFunction {
    const wchar_t* name;
    int (*function)();
    int registerFlag;
};

/// The code of a function is its index. Row 0 is never used, so that real codes begin at 1.
constexpr LispFunction kLispFunctions[] = {
    {},
    {L"VelmoGroupVersion", lispVersionFunction, 1},
};
constexpr int kRowCount = static_cast<int>(std::size(kLispFunctions));
constexpr int kVersionCode = 1;

/// Source name and moment of the build: fixed by the compiler, not read when the module runs.
constexpr wchar_t kVersionLine[] = L"GroupCommands : " __DATE__ L" " __TIME__;

}  // namespace

int defineLispFunctions() {
    for (int code = 1; code < kRowCount; ++code) {
        const LispFunction& row = kLispFunctions[code];
        if (acedDefun(row.name, code) == 0) return RTERROR;
        if (row.registerFlag != 0) acedRegFunc(row.function, code);
    }
    return RTNORM;
}

void undefineLispFunction() { acedUndef(kLispFunctions[kVersionCode].name, kVersionCode); }

void dispatchLispFunction() {
    acedRetVoid();
    const int code = acedGetFunCode();
    if (code >= 1 && code < kRowCount) kLispFunctions[code].function();
}

int lispVersionFunction() {
    // The host calls this directly, past the entry point.
    withinBoundary([] {
        acedGetArgs();
        messageService(L"%s\n", kVersionLine);
    });
    return RSRSLT;
}
