// The prompts that modules use: one entity, one point.
#include "host/objectarx/interactive_input.h"

#include "host/control/faults.h"
#include "host/database/result_buffer_tools.h"
#include "host/database/store.h"
#include "host/editor/current_drawing.h"
#include "host/editor/entity_groups.h"
#include "host/editor/input.h"
#include "host/editor/notify.h"
#include "host/editor/outline.h"
#include "host/editor/select_objects.h"
#include "host/editor/sysvars.h"

using namespace host;

namespace {

constexpr int kNoEmptyAnswer = 1;

/// Options that acedInitGet left for the next input call.
int pendingBits = 0;

int takeBits() {
    const int bits = pendingBits;
    pendingBits = 0;
    return bits;
}

void writePoint(const AcGePoint3d& from, ads_point to) {
    to[0] = from.x;
    to[1] = from.y;
    to[2] = from.z;
}

/// What one answer to acedEntSel gave.
struct Pick {
    AcDbObjectId id;
    AcGePoint3d point;
};

/// False, with a line of explanation, when the text is neither a point nor the handle of an entity.
/// A handle picks the entity at the first point that its data names.
bool readPick(const Store& store, const std::wstring& text, Pick& pick, std::wstring& explanation) {
    if (const auto handle = parseHandent(text)) {
        pick.id = selectHandle(store, *handle, explanation);
        if (pick.id.isNull()) return false;
        const Vec at = pointOf(EntityGroups(Store::resolve(pick.id)->text()), 10);
        pick.point = {at.x, at.y, at.z};
        return true;
    }
    const auto point = parsePoint(text, nullptr);
    if (!point) {
        explanation = L"\"" + text + L"\" is no point; give x,y or (handent \"2A\")";
        return false;
    }
    pick = {entityUnder(store, *point), *point};
    return true;
}

}  // namespace

int acedInitGet(int bits, const ACHAR* keywords) {
    if (callFails("acedInitGet")) return RTERROR;
    if (keywords != nullptr && *keywords != 0) return RTERROR;  // keywords are not served
    pendingBits = bits;
    return RTNORM;
}

int acedEntSel(const ACHAR* text, ads_name entity, ads_point point) {
    if (callFails("acedEntSel")) return RTERROR;
    const Store* store = currentStore();
    const int bits = takeBits();
    if (!inputAllowed("acedEntSel") || store == nullptr || entity == nullptr || point == nullptr)
        return RTERROR;
    for (;;) {
        const Answer answer = prompt(text == nullptr ? L"\nSelect object: " : text);
        if (answer.kind == Answer::Kind::Enter) {
            if ((bits & kNoEmptyAnswer) != 0) continue;
            setErrno(kErrnoEmptyAnswer);
            return RTERROR;
        }
        if (answer.kind != Answer::Kind::Text) return RTCAN;
        Pick pick;
        std::wstring explanation;
        if (!readPick(*store, answer.text, pick, explanation) && wrongAnswer(explanation)) continue;
        if (pick.id.isNull()) {
            setErrno(kErrnoNothingPicked);
            return RTERROR;
        }
        nameOfId(pick.id, entity);
        writePoint(pick.point, point);
        return RTNORM;
    }
}

int acedGetPoint(const ads_point base, const ACHAR* text, ads_point result) {
    if (callFails("acedGetPoint")) return RTERROR;
    const int bits = takeBits();
    if (!inputAllowed("acedGetPoint") || currentStore() == nullptr || result == nullptr)
        return RTERROR;
    AcGePoint3d from, point;
    if (base != nullptr) from = asPnt3d(base);
    for (;;) {
        switch (
            promptPoint(text == nullptr ? L"" : text, base == nullptr ? nullptr : &from, point)) {
            case PromptStatus::Ok:
                writePoint(point, result);
                return RTNORM;
            case PromptStatus::Cancel:
                return RTCAN;
            case PromptStatus::None:
                if ((bits & kNoEmptyAnswer) == 0) return RTNONE;
                break;
        }
    }
}
