// Defines, undefines and dispatches the AutoLISP functions of the module.
#include "lisp_table.h"

#include <string>

#include "boundary.h"
#include "build_moment.h"
#include "message_service.h"
#include "platform.h"

namespace {

struct LispFunction {
    const wchar_t* name;
    int (*function)();
    int registerFlag;
};

/// The code of a function is its index. Row 0 is never used, so that real codes begin at 1.
const LispFunction kLispFunctions[] = {
    {L"", nullptr, 0},
    {L"VelmoGroupVersion", lispVersionFunction, 1},
};
const int kRowCount = sizeof kLispFunctions / sizeof *kLispFunctions;
const int kVersionCode = 1;

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
        const std::wstring line = std::wstring(L"GroupCommands : ") + buildMoment();
        messageService(L"%s\n", line.c_str());
    });
    return RSRSLT;
}
