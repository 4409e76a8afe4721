// acedEntSel: the prompt that picks one entity.
#include <algorithm>

#include "host/control/faults.h"
#include "host/control/scoped_value.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/selection/selection_sources.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/notify.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/interactive_input.h"
#include "host/objects/result_list.h"
#include "host/picking/outline.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"
#include "host/text/lisp_cursor.h"

using namespace host;

namespace {

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
        const Vec at = pointOf(OwnTags(Store::resolve(pick.id)->tags()), 10);
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

int acedEntSel(const ACHAR* text, ads_name entity, ads_point point) {
    if (callFails("acedEntSel")) return RTERROR;
    const Store* store = currentStore();
    const int bits = takeInputOptions();
    if (!inputAllowed("acedEntSel") || store == nullptr || entity == nullptr || point == nullptr)
        return RTERROR;
    const ScopedValue<Question> asking(question(), {Wanted::Entity});
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
        std::copy_n(asDblArray(pick.point), 3, point);
        return RTNORM;
    }
}
