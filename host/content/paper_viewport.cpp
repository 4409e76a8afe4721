// The viewport that is the paper of a layout itself.
#include "host/content/paper_viewport.h"

#include "host/content/fields.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

constexpr FieldPlace kLastViewport{"AcDbLayout", 331};

/// The layout of a block record, or null.
ObjectBody* layoutOf(const ObjectBody& block) {
    return block.store->byHandle(handleTag(block.tags(), {"AcDbBlockTableRecord", 340}));
}

bool wasWorkedIn(const ObjectBody* layout, const ObjectBody& viewport) {
    return layout != nullptr && handleTag(layout->tags(), kLastViewport) == viewport.handle;
}

}  // namespace

bool isPaperViewport(const ObjectBody& entity) {
    if (entity.type() != "VIEWPORT" || entity.owner == kNoIndex) return false;
    const Store& store = *entity.store;
    const ObjectBody& block = store.at(entity.owner);
    if (block.kind != Kind::BlockRecord || !isPaperSpace(block)) return false;
    const int number = integerTag(entity.tags(), 69);
    if (number != 0) return number == 1;
    return wasWorkedIn(layoutOf(block), entity);
}

void passOnLastViewport(const ObjectBody& source, const ObjectBody& clone) {
    if (source.type() != "VIEWPORT" || source.owner != clone.owner || isPaperViewport(source))
        return;
    ObjectBody* const layout = layoutOf(source.store->at(source.owner));
    if (!wasWorkedIn(layout, source)) return;
    std::string text(layout->tags());
    setTag(text, kLastViewport, formatHandle(clone.handle));
    layout->setTags(text);
}

}  // namespace host
