// Selecting entities for editing, erasing them, and telling why they cannot be changed.
#include "host/commands/entity_selection.h"

#include <algorithm>

#include "host/commands/open_drawing.h"
#include "host/control/effects.h"
#include "host/control/switches.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/selection/select_objects.h"
#include "host/editor/state/active_command.h"
#include "host/objects/erasing.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"

namespace host {

CommandStatus editSelection(Locked locked, EntityWork work) {
    Store* store = drawingOrComplaint();
    if (store == nullptr) return CommandStatus::Failed;
    std::vector<AcDbObjectId> selection;
    if (promptSelection(selection) == PromptStatus::Cancel) return CommandStatus::Cancelled;
    std::vector<ObjectBody*> entities;
    long onLocked = 0;
    for (const AcDbObjectId id : selection) {
        ObjectBody* body = Store::resolve(id);
        if (body == nullptr || body->erased) continue;
        if (locked == Locked::LeftOut && store->onLockedLayer(*body))
            ++onLocked;
        else
            entities.push_back(body);
    }
    if (switches().copiesInDrawingOrder) {
        std::sort(entities.begin(), entities.end(),
                  [](const ObjectBody* a, const ObjectBody* b) { return a->self < b->self; });
    }
    if (onLocked > 0)
        printLine(std::to_wstring(onLocked) + L" on a locked layer, left as they are.");
    return entities.empty() ? CommandStatus::Done : work(*store, entities);
}

void eraseEntities(const std::vector<ObjectBody*>& entities) {
    for (ObjectBody* entity : entities)
        eraseWithOwned(*entity);
    dropErasedFromPickfirst();
}

bool canTransform(EntityTransform& transform, const std::vector<ObjectBody*>& entities) {
    for (const ObjectBody* entity : entities) {
        if (transform.check(*entity)) continue;
        printProblem(fromUtf8(transform.problem()) + L".");
        return false;
    }
    return true;
}

}  // namespace host
