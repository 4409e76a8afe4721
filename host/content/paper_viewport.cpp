// The viewport that is the paper of a layout itself.
#include "host/content/paper_viewport.h"

#include "host/content/fields.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// The handle that a tag of an object's subclass names; 0 when there is none.
std::uint64_t pointerOf(const ObjectBody* object, const FieldPlace& place) {
    if (object == nullptr) return 0;
    return parseHandle(fieldValue(object->tags(), place).value_or("0")).value_or(0);
}

constexpr FieldPlace kLastViewport{"AcDbLayout", 331};

/// The layout of a block record, or null.
ObjectBody* layoutOf(const ObjectBody& block) {
    return block.store->byHandle(pointerOf(&block, {"AcDbBlockTableRecord", 340}));
}

}  // namespace

bool isPaperViewport(const ObjectBody& entity) {
    if (entity.type() != "VIEWPORT" || entity.owner == kNoIndex) return false;
    const Store& store = *entity.store;
    const ObjectBody& block = store.at(entity.owner);
    if (block.kind != Kind::BlockRecord || !isPaperSpace(block)) return false;
    const long long number = integerTag(entity.tags(), 69, 0);
    if (number != 0) return number == 1;
    return pointerOf(layoutOf(block), kLastViewport) == entity.handle;
}

void passOnLastViewport(const ObjectBody& source, const ObjectBody& clone) {
    if (source.type() != "VIEWPORT" || source.owner != clone.owner || isPaperViewport(source))
        return;
    ObjectBody* const layout = layoutOf(source.store->at(source.owner));
    if (pointerOf(layout, kLastViewport) != source.handle) return;
    std::string text(layout->tags());
    setFieldValue(text, kLastViewport, formatHandle(clone.handle));
    layout->setTags(text);
}

}  // namespace host
