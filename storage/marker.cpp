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

bool findBlock(const std::wstring& blockName, AcDbObjectId& block) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    Opened<AcDbBlockTable> blocks;
    const bool opened = database != nullptr &&
                        database->getSymbolTable(blocks.receive(), AcDb::kForRead) == Acad::eOk;
    DIAG_ASSERT(opened, L"pDatabase->getSymbolTable(pBlockTable, AcDb::kForRead) == Acad::eOk");
    if (!opened) return false;
    if (!blocks->has(blockName.c_str())) {
        acutPrintf(L"\nBlock definition %s not found. ", blockName.c_str());
        return false;
    }
    const bool found = blocks->getAt(blockName.c_str(), block) == Acad::eOk;
    DIAG_ASSERT(found, L"pBlockTable->getAt(sBlockName, blockId) == Acad::eOk");
    return found;
}

/// Appends an attribute made after `definition` to the reference.
void appendAttribute(AcDbBlockReference& reference, const AcDbAttributeDefinition& definition,
                     const AcGePoint3d& point, const std::wstring& text) {
    NewObject<AcDbAttribute> attribute(new AcDbAttribute);
    DIAG_ASSERT(attribute->setPropertiesFrom(&definition) == Acad::eOk,
                L"pAtt->setPropertiesFrom(pAttDef) == Acad::eOk");
    attribute->setInvisible(definition.isInvisible());
    attribute->setPosition(point);
    attribute->setHeight(definition.height());
    attribute->setRotation(definition.rotation());
    attribute->setTag(definition.tagConst());
    attribute->setFieldLength(kFieldLength);
    attribute->setTextString(text.c_str());
    DIAG_ASSERT(reference.appendAttribute(attribute.get()) == Acad::eOk,
                L"pBlkRef->appendAttribute(pAtt) == Acad::eOk");
}

/// Gives the reference one attribute for each definition of its block that is not constant.
void appendAttributes(AcDbBlockReference& reference, const AcDbObjectId& block,
                      const AcGePoint3d& point, const MarkerTexts& texts) {
    Opened<AcDbBlockTableRecord> definitionRecord;
    const bool opened =
        acdbOpenObject(definitionRecord.receive(), block, AcDb::kForRead) == Acad::eOk;
    DIAG_ASSERT(opened, L"acdbOpenObject(pBlkDefRecord, blkDefId, AcDb::kForRead) == Acad::eOk");
    if (!opened || !definitionRecord->hasAttributeDefinitions()) return;
    Iterator<AcDbBlockTableRecordIterator> entities;
    DIAG_ASSERT(definitionRecord->newIterator(entities.receive()) == Acad::eOk,
                L"pBlkDefRecord->newIterator(pIterator) == Acad::eOk");
    bool first = true;
    for (; entities && !entities->done(); entities->step()) {
        Opened<AcDbEntity> entity;
        DIAG_ASSERT(entities->getEntity(entity.receive(), AcDb::kForRead) == Acad::eOk,
                    L"pIterator->getEntity(pEnt, AcDb::kForRead) == Acad::eOk");
        const AcDbAttributeDefinition* definition = AcDbAttributeDefinition::cast(entity.get());
        if (definition == nullptr || definition->isConstant()) continue;
        appendAttribute(reference, *definition, point, first ? texts.first : texts.other);
        first = false;
    }
}

/// Opens the first attribute of the reference; stays empty when it has none.
void openFirstAttribute(AcDbBlockReference& reference, Opened<AcDbAttribute>& attribute) {
    const Iterator<AcDbObjectIterator> attributes(reference.attributeIterator());
    if (!attributes || attributes->done()) return;
    DIAG_ASSERT(reference.openAttribute(attribute.receive(), attributes->objectId(),
                                        AcDb::kForRead) == Acad::eOk,
                L"pBlkRef->openAttribute(pAtt, attId, AcDb::kForRead) == Acad::eOk");
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
        const bool opened = reference.openAttribute(attribute.receive(), attributes->objectId(),
                                                    AcDb::kForWrite) == Acad::eOk;
        DIAG_ASSERT(opened, L"pBlkRef->openAttribute(pAtt, attId, AcDb::kForWrite) == Acad::eOk");
        if (!opened) continue;
        if (!attribute->position().isEqualTo(point, tolerance)) attribute->setPosition(point);
        attribute->setTextString(text.c_str());
    }
}

}  // namespace

bool blockHasAttributeDefinitions(const AcDbBlockReference& reference) {
    Opened<AcDbBlockTableRecord> block;
    const bool opened =
        acdbOpenObject(block.receive(), reference.blockTableRecord(), AcDb::kForRead) == Acad::eOk;
    DIAG_ASSERT(opened, L"acdbOpenObject(pBlkDefRecord, blkDefId, AcDb::kForRead) == Acad::eOk");
    return opened && block->hasAttributeDefinitions();
}

void insertMarker(const std::wstring& blockName, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText) {
    AcDbObjectId block;
    if (!findBlock(blockName, block)) return;
    Opened<AcDbBlockTableRecord> space;
    const bool opened =
        acdbOpenObject(space.receive(), currentSpaceId(), AcDb::kForWrite) == Acad::eOk;
    DIAG_ASSERT(opened, L"acdbOpenObject(pSpaceRecord, spaceId, AcDb::kForWrite) == Acad::eOk");
    if (!opened) return;

    NewObject<AcDbBlockReference> reference(new AcDbBlockReference(point, block));
    reference->setScaleFactors(AcGeScale3d(1.0));
    DIAG_ASSERT(reference->setLayer((groupPrefix() + GroupSuffix::kLayer).c_str()) == Acad::eOk,
                L"pBlkRef->setLayer(sLayerName) == Acad::eOk");
    reference->setColorIndex(kByLayer);
    DIAG_ASSERT(reference->setLinetype(L"BYLAYER") == Acad::eOk,
                L"pBlkRef->setLinetype(L\"BYLAYER\") == Acad::eOk");
    const bool appended = space->appendAcDbEntity(reference.get()) == Acad::eOk;
    DIAG_ASSERT(appended, L"pSpaceRecord->appendAcDbEntity(pBlkRef) == Acad::eOk");
    if (appended) appendAttributes(*reference.get(), block, point, {firstText, otherText});
}

std::wstring readMarkerText(const AcDbObjectId& entityId, MarkerText wanted) {
    if (entityId.isErased()) return {};
    Opened<AcDbEntity> entity;
    const bool opened = acdbOpenAcDbEntity(entity.receive(), entityId, AcDb::kForRead) == Acad::eOk;
    DIAG_ASSERT(opened, L"acdbOpenAcDbEntity(pEnt, objId, AcDb::kForRead) == Acad::eOk");
    AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
    if (reference == nullptr || !blockHasAttributeDefinitions(*reference)) return {};

    Opened<AcDbAttribute> attribute;
    openFirstAttribute(*reference, attribute);
    if (!attribute) return {};
    const std::wstring tag = attribute->tagConst();
    if (wanted == MarkerText::kTag) return tag;
    const std::wstring prefix = groupPrefix();
    const bool marker =
        tag == prefix + GroupSuffix::kEndMarker || tag == prefix + GroupSuffix::kBeginMarker;
    return marker ? attribute->textStringConst() : L"";
}

void updateMarker(const AcDbObjectId& markerId, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText) {
    Opened<AcDbBlockReference> reference;
    const bool opened = acdbOpenObject(reference.receive(), markerId, AcDb::kForWrite) == Acad::eOk;
    DIAG_ASSERT(opened, L"acdbOpenObject(pBlkRef, markerId, AcDb::kForWrite) == Acad::eOk");
    if (!opened) return;
    if (!reference->position().isEqualTo(point, placeTolerance())) reference->setPosition(point);
    if (blockHasAttributeDefinitions(*reference.get())) {
        rewriteAttributes(*reference.get(), point, {firstText, otherText});
    }
}
