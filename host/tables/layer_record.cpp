// Layer records: colour, linetype and state.
#include "host/control/faults.h"
#include "host/objectarx/symbol_tables.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"
#include "host/tags/tag_values.h"

using namespace host;

namespace {

/// Colour as stored: negative while the layer is off.
int storedColor(const ObjectBody& layer) { return integerTag(layer.tags(), 62, 7); }

void setInteger(ObjectBody& layer, int code, int value) {
    std::string text(layer.tags());
    setTag(text, code, value);
    layer.setTags(text);
}

bool isCurrent(const ObjectBody& layer) {
    if (layer.store == nullptr) return false;
    const auto current = layer.store->headerValue("$CLAYER");
    return current && foldCase(layer.store->decode(*current)) == foldCase(symbolName(layer));
}

}  // namespace

AcDbLayerTableRecord::AcDbLayerTableRecord()
    : AcDbSymbolTableRecord(
          freshBody(Kind::LayerRecord, newRecordText("LAYER", "AcDbLayerTableRecord") +
                                           storedTags({{62, "7"}, {6, "CONTINUOUS"}}))) {}

Acad::ErrorStatus AcDbLayerTableRecord::setColor(const AcCmColor& color) {
    if (callFails("AcDbLayerTableRecord::setColor")) return Acad::eInvalidInput;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    const int index = color.colorIndex();
    setInteger(content, 62, storedColor(content) < 0 ? -index : index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
    if (callFails("AcDbLayerTableRecord::setLinetypeObjectId")) return Acad::eInvalidInput;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (id.isNull()) return Acad::eNullObjectId;
    const ObjectBody* const linetype = bodyOfId(id, "AcDbLayerTableRecord::setLinetypeObjectId");
    if (linetype == nullptr) return Acad::eInvalidInput;
    if (linetype->kind != Kind::LinetypeRecord) return Acad::eNotThatKindOfClass;
    if (content.store != nullptr && content.store != linetype->store) return Acad::eWrongDatabase;
    std::string text(content.tags());
    setTag(text, 6, content.encode(symbolName(*linetype)));
    content.setTags(text);
    return Acad::eOk;
}

bool AcDbLayerTableRecord::isLocked() const { return layerState(body()).locked; }

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    if (callFails("AcDbLayerTableRecord::setIsFrozen")) return Acad::eInvalidInput;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (frozen && isCurrent(content)) return Acad::eInvalidInput;
    constexpr int kFrozen = 1;
    const int flags = integerTag(content.tags(), 70);
    setInteger(content, 70, frozen ? flags | kFrozen : flags & ~kFrozen);
    return Acad::eOk;
}
