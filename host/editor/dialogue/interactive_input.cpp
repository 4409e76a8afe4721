// The prompts that modules use: a point here; one entity is picked in editor/selection.
#include "host/objectarx/interactive_input.h"

#include <algorithm>

#include "host/control/faults.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/notify.h"

using namespace host;

namespace {

/// Options that acedInitGet left for the next input call.
int pendingBits = 0;

}  // namespace

int host::takeInputOptions() {
    const int bits = pendingBits;
    pendingBits = 0;
    return bits;
}

int acedInitGet(int bits, const ACHAR* keywords) {
    if (callFails("acedInitGet")) return RTERROR;
    if (keywords != nullptr && *keywords != 0) return RTERROR;  // keywords are not served
    pendingBits = bits;
    return RTNORM;
}

int acedGetPoint(const ads_point base, const ACHAR* text, ads_point result) {
    if (callFails("acedGetPoint")) return RTERROR;
    const int bits = takeInputOptions();
    if (!inputAllowed("acedGetPoint") || currentStore() == nullptr || result == nullptr)
        return RTERROR;
    AcGePoint3d from, point;
    if (base != nullptr) from = asPnt3d(base);
    for (;;) {
        switch (
            promptPoint(text == nullptr ? L"" : text, base == nullptr ? nullptr : &from, point)) {
            case PromptStatus::Ok:
                std::copy_n(asDblArray(point), 3, result);
                return RTNORM;
            case PromptStatus::Cancel:
                return RTCAN;
            case PromptStatus::None:
                if ((bits & kNoEmptyAnswer) == 0) return RTNONE;
                break;
        }
    }
}
