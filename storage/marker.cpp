// Inserts, reads and rewrites group markers.
#include "marker.h"

#include "current_space.h"
#include "diagnostics.h"
#include "group_naming.h"
#include "host_guards.h"

namespace {

constexpr wchar_t DIAG_SOURCE[] = L"Marker";
constexpr Adesk::UInt16 kByLayer = 256;
constexpr Adesk::UInt16 kFieldLength = 25;
constexpr double kSamePlace = 0.01;

struct MarkerTexts {
    const std::wstring& first;
    const std::wstring& other;
};

/// Finds a marker's block and the space that it comes to. False when the block table does not give
/// them; the ids stay null when it has no such block.
bool findBlockAndSpace(const std::wstring& blockName, AcDbObjectId& block, AcDbObjectId& space) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    Opened<AcDbBlockTable> blocks;
    const bool opened =
        DIAG_CHECK(database != nullptr &&
                   database->getSymbolTable(blocks.receive(), AcDb::kForRead) == Acad::eOk);
    if (!opened) return false;
    if (!blocks->has(blockName.c_str())) {
        acutPrintf(L"\nBlock definition %s not found. ", blockName.c_str());
        return true;
    }
    const bool found = DIAG_CHECK(blocks->getAt(blockName.c_str(), block) == Acad::eOk);
    if (found) space = currentSpaceId(*blocks.get());
    return found;
}

bool openBlock(const AcDbBlockReference& reference, Opened<AcDbBlockTableRecord>& block) {
    const bool opened = DIAG_CHECK(
        acdbOpenObject(block.receive(), reference.blockTableRecord(), AcDb::kForRead) == Acad::eOk);
    return opened;
}

/// Appends an attribute made after `definition` to the reference.
void appendAttribute(AcDbBlockReference& reference, const AcDbAttributeDefinition& definition,
                     const AcGePoint3d& point, const std::wstring& text) {
    NewObject<AcDbAttribute> attribute(new AcDbAttribute);
    DIAG_CHECK(attribute->setPropertiesFrom(&definition) == Acad::eOk);
    DIAG_CHECK(attribute->setInvisible(definition.isInvisible()) == Acad::eOk);
    DIAG_CHECK(attribute->setPosition(point) == Acad::eOk);
    DIAG_CHECK(attribute->setHeight(definition.height()) == Acad::eOk);
    DIAG_CHECK(attribute->setRotation(definition.rotation()) == Acad::eOk);
    DIAG_CHECK(attribute->setTag(definition.tagConst()) == Acad::eOk);
    DIAG_CHECK(attribute->setFieldLength(kFieldLength) == Acad::eOk);
    DIAG_CHECK(attribute->setTextString(text.c_str()) == Acad::eOk);
    DIAG_CHECK(reference.appendAttribute(attribute.get()) == Acad::eOk);
}

/// Gives the reference one attribute for each definition of its block that is not constant.
void appendAttributes(AcDbBlockReference& reference, const AcDbObjectId& block,
                      const AcGePoint3d& point, const MarkerTexts& texts) {
    Opened<AcDbBlockTableRecord> definitionRecord;
    const bool opened =
        DIAG_CHECK(acdbOpenObject(definitionRecord.receive(), block, AcDb::kForRead) == Acad::eOk);
    if (!opened || !definitionRecord->hasAttributeDefinitions()) return;
    Iterator<AcDbBlockTableRecordIterator> entities;
    DIAG_CHECK(definitionRecord->newIterator(entities.receive()) == Acad::eOk);
    bool first = true;
    for (; entities && !entities->done(); entities->step()) {
        Opened<AcDbEntity> entity;
        DIAG_CHECK(entities->getEntity(entity.receive(), AcDb::kForRead) == Acad::eOk);
        const AcDbAttributeDefinition* definition = AcDbAttributeDefinition::cast(entity.get());
        if (definition == nullptr || definition->isConstant()) continue;
        appendAttribute(reference, *definition, point, first ? texts.first : texts.other);
        first = false;
    }
}

/// Opens the first attribute of the reference; stays empty when it has none. False when the host
/// refuses.
bool openFirstAttribute(AcDbBlockReference& reference, Opened<AcDbAttribute>& attribute) {
    const Iterator<AcDbObjectIterator> attributes(reference.attributeIterator());
    if (!attributes || attributes->done()) return true;
    const bool opened =
        DIAG_CHECK(reference.openAttribute(attribute.receive(), attributes->objectId(),
                                           AcDb::kForRead) == Acad::eOk);
    return opened;
}

/// Opens the first attribute of an entity; stays empty when it has none. False when the host does
/// not let the entity be read.
bool openFirstAttribute(const AcDbObjectId& entityId, Opened<AcDbEntity>& entity,
                        Opened<AcDbAttribute>& attribute) {
    if (entityId.isErased()) return true;
    const bool opened =
        DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), entityId, AcDb::kForRead) == Acad::eOk);
    AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
    if (reference == nullptr) return opened;
    Opened<AcDbBlockTableRecord> block;
    return openBlock(*reference, block) &&
           (!block->hasAttributeDefinitions() || openFirstAttribute(*reference, attribute));
}

AcGeTol placeTolerance() {
    AcGeTol tolerance;
    tolerance.setEqualPoint(kSamePlace);
    return tolerance;
}

void rewriteAttributes(AcDbBlockReference& reference, const AcGePoint3d& point,
                       const MarkerTexts& texts) {
    const AcGeTol tolerance = placeTolerance();
    const Iterator<AcDbObjectIterator> attributes(reference.attributeIterator());
    bool first = true;
    for (; attributes && !attributes->done(); attributes->step()) {
        const std::wstring& text = first ? texts.first : texts.other;
        first = false;
        Opened<AcDbAttribute> attribute;
        const bool opened =
            DIAG_CHECK(reference.openAttribute(attribute.receive(), attributes->objectId(),
                                               AcDb::kForWrite) == Acad::eOk);
        if (!opened) continue;
        if (!attribute->position().isEqualTo(point, tolerance)) {
            DIAG_CHECK(attribute->setPosition(point) == Acad::eOk);
        }
        DIAG_CHECK(attribute->setTextString(text.c_str()) == Acad::eOk);
    }
}

}  // namespace

bool blockHasAttributeDefinitions(const AcDbBlockReference& reference) {
    Opened<AcDbBlockTableRecord> block;
    return openBlock(reference, block) && block->hasAttributeDefinitions();
}

bool insertMarker(const std::wstring& blockName, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText) {
    AcDbObjectId block;
    AcDbObjectId spaceId;
    if (!findBlockAndSpace(blockName, block, spaceId)) return false;
    if (block.isNull()) return true;
    Opened<AcDbBlockTableRecord> space;
    const bool opened =
        DIAG_CHECK(acdbOpenObject(space.receive(), spaceId, AcDb::kForWrite) == Acad::eOk);
    if (!opened) return false;

    NewObject<AcDbBlockReference> reference(new AcDbBlockReference(point, block));
    DIAG_CHECK(reference->setScaleFactors(AcGeScale3d(1.0)) == Acad::eOk);
    DIAG_CHECK(reference->setLayer((groupPrefix() + GroupSuffix::kLayer).c_str()) == Acad::eOk);
    DIAG_CHECK(reference->setColorIndex(kByLayer) == Acad::eOk);
    DIAG_CHECK(reference->setLinetype(L"BYLAYER") == Acad::eOk);
    const bool appended = DIAG_CHECK(space->appendAcDbEntity(reference.get()) == Acad::eOk);
    if (appended) appendAttributes(*reference.get(), block, point, {firstText, otherText});
    return appended;
}

std::wstring readMarkerText(const AcDbObjectId& entityId, MarkerText wanted) {
    Opened<AcDbEntity> entity;
    Opened<AcDbAttribute> attribute;
    openFirstAttribute(entityId, entity, attribute);
    if (!attribute) return {};
    const std::wstring tag = attribute->tagConst();
    if (wanted == MarkerText::kTag) return tag;
    const std::wstring prefix = groupPrefix();
    const bool marker =
        tag == prefix + GroupSuffix::kEndMarker || tag == prefix + GroupSuffix::kBeginMarker;
    return marker ? attribute->textStringConst() : L"";
}

bool readMarkerTag(const AcDbObjectId& entityId, std::wstring& tag) {
    Opened<AcDbEntity> entity;
    Opened<AcDbAttribute> attribute;
    const bool readable = openFirstAttribute(entityId, entity, attribute);
    tag = attribute ? attribute->tagConst() : L"";
    return readable;
}

void updateMarker(const AcDbObjectId& markerId, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText) {
    Opened<AcDbBlockReference> reference;
    const bool opened =
        DIAG_CHECK(acdbOpenObject(reference.receive(), markerId, AcDb::kForWrite) == Acad::eOk);
    if (!opened) return;
    if (!reference->position().isEqualTo(point, placeTolerance())) {
        DIAG_CHECK(reference->setPosition(point) == Acad::eOk);
    }
    if (blockHasAttributeDefinitions(*reference.get())) {
        rewriteAttributes(*reference.get(), point, {firstText, otherText});
    }
}
