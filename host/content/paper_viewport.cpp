// The viewport that is the paper of a layout itself.
#include "host/content/paper_viewport.h"

#include "host/content/fields.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {

bool isPaperViewport(const ObjectBody& entity) {
    if (entity.type() != "VIEWPORT" || entity.owner == kNoIndex) return false;
    const Store& store = *entity.store;
    const ObjectBody& block = store.at(entity.owner);
    if (block.kind != Kind::BlockRecord || !isPaperSpace(block)) return false;
    const int number = integerTag(entity.tags(), 69);
    if (number != 0) return number == 1;
    const ObjectBody* const layout =
        store.byHandle(handleTag(block.tags(), {"AcDbBlockTableRecord", 340}));
    return layout != nullptr && handleTag(layout->tags(), {"AcDbLayout", 331}) == entity.handle;
}

}  // namespace host
