// Layer records: colour, linetype and state.
#include "host/control/faults.h"
#include "host/objectarx/symbol_tables.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"
#include "host/tags/tag_values.h"

namespace {

/// Colour as stored: negative while the layer is off.
int storedColor(const host::ObjectBody& layer) {
    return host::integerTag(layer.tags(), 62, 7);
}

void setInteger(host::ObjectBody& layer, int code, int value) {
    std::string text(layer.tags());
    host::setTag(text, code, value);
    layer.setTags(text);
}

bool isCurrent(const host::ObjectBody& layer) {
    if (layer.store == nullptr) return false;
    const auto current = layer.store->headerValue("$CLAYER");
    return current &&
           host::foldCase(layer.store->decode(*current)) == host::foldCase(host::symbolName(layer));
}

}  // namespace

AcDbLayerTableRecord::AcDbLayerTableRecord()
    : AcDbSymbolTableRecord([] {
          std::string text = host::newRecordText("LAYER", "AcDbLayerTableRecord");
          host::addTag(text, 62, 7);
          host::addTag(text, 6, "CONTINUOUS");
          return host::freshBody(host::Kind::LayerRecord, text);
      }()) {}

Acad::ErrorStatus AcDbLayerTableRecord::setColor(const AcCmColor& color) {
    if (host::callFails("AcDbLayerTableRecord::setColor")) return Acad::eInvalidInput;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    const int index = color.colorIndex();
    setInteger(content, 62, storedColor(content) < 0 ? -index : index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
    if (host::callFails("AcDbLayerTableRecord::setLinetypeObjectId")) return Acad::eInvalidInput;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (id.isNull()) return Acad::eNullObjectId;
    const host::ObjectBody* const linetype =
        host::bodyOfId(id, "AcDbLayerTableRecord::setLinetypeObjectId");
    if (linetype == nullptr) return Acad::eInvalidInput;
    if (linetype->kind != host::Kind::LinetypeRecord) return Acad::eNotThatKindOfClass;
    if (content.store != nullptr && content.store != linetype->store) return Acad::eWrongDatabase;
    std::string text(content.tags());
    host::setTag(text, 6, content.encode(host::symbolName(*linetype)));
    content.setTags(text);
    return Acad::eOk;
}

bool AcDbLayerTableRecord::isLocked() const { return host::layerState(body()).locked; }

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    if (host::callFails("AcDbLayerTableRecord::setIsFrozen")) return Acad::eInvalidInput;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (frozen && isCurrent(content)) return Acad::eInvalidInput;
    constexpr int kFrozen = 1;
    const int flags = host::integerTag(content.tags(), 70);
    setInteger(content, 70, frozen ? flags | kFrozen : flags & ~kFrozen);
    return Acad::eOk;
}
