// Layer records: colour, linetype and state.
#include "host/content/fields.h"
#include "host/control/faults.h"
#include "host/objectarx/symbol_tables.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"

using namespace host;

namespace {

constexpr IntegerField kColor{{"", 62, 0, true}, 7};  ///< negative while the layer is off
constexpr IntegerField kFlags{{"", 70, 0, true}};
constexpr TextField kLinetype{{"", 6, 0, true}, L""};

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
    setField(content, kColor, getField(content, kColor) < 0 ? -index : index);
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
    setField(content, kLinetype, symbolName(*linetype));
    return Acad::eOk;
}

bool AcDbLayerTableRecord::isLocked() const { return layerState(body()).locked; }

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    if (callFails("AcDbLayerTableRecord::setIsFrozen")) return Acad::eInvalidInput;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (frozen && isCurrent(content)) return Acad::eInvalidInput;
    constexpr int kFrozen = 1;
    const int flags = getField(content, kFlags);
    setField(content, kFlags, frozen ? flags | kFrozen : flags & ~kFrozen);
    return Acad::eOk;
}
