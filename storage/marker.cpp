// Inserts, reads and rewrites group markers.
#include "marker.h"

#include "current_space.h"
#include "diagnostics.h"
#include "group_naming.h"
#include "host_guards.h"
#include "host_services.h"
#include "marker_block.h"

namespace {

const CheckSource DIAG_SOURCE = L"Marker";
const Adesk::UInt16 kByLayer = 256;
const double kSamePlace = 0.01;

struct MarkerTexts {
    MarkerTexts(const std::wstring& firstText, const std::wstring& otherText)
        : m_sFirst(firstText), m_sOther(otherText) {}

    const std::wstring& m_sFirst;
    const std::wstring& m_sOther;
};

bool openBlock(const AcDbBlockReference& reference, Opened<AcDbBlockTableRecord>& block) {
    return DIAG_CHECK(
        acdbOpenObject(block.receive(), reference.blockTableRecord(), AcDb::kForRead) == Acad::eOk);
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
    DIAG_CHECK(attribute->setFieldLength(kMarkerFieldLength) == Acad::eOk);
    DIAG_CHECK(attribute->setTextString(text.c_str()) == Acad::eOk);
    DIAG_CHECK(reference.appendAttribute(attribute.get()) == Acad::eOk);
}

/// Gives the reference one attribute for each definition of its block that is not constant.
void appendAttributes(AcDbBlockReference& reference, const AcDbObjectId& block,
                      const AcGePoint3d& point, const MarkerTexts& texts) {
    Opened<AcDbBlockTableRecord> definitionRecord;
    if (!DIAG_CHECK(acdbOpenObject(definitionRecord.receive(), block, AcDb::kForRead) ==
                    Acad::eOk) ||
        !definitionRecord->hasAttributeDefinitions()) {
        return;
    }
    Iterator<AcDbBlockTableRecordIterator> entities;
    DIAG_CHECK(definitionRecord->newIterator(entities.receive()) == Acad::eOk);
    bool first = true;
    for (; !entities.done(); entities->step()) {
        Opened<AcDbEntity> entity;
        DIAG_CHECK(entities->getEntity(entity.receive(), AcDb::kForRead) == Acad::eOk);
        const AcDbAttributeDefinition* definition = AcDbAttributeDefinition::cast(entity.get());
        if (definition == nullptr || definition->isConstant()) continue;
        appendAttribute(reference, *definition, point, first ? texts.m_sFirst : texts.m_sOther);
        first = false;
    }
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
    for (; !attributes.done(); attributes->step()) {
        const std::wstring& text = first ? texts.m_sFirst : texts.m_sOther;
        first = false;
        Opened<AcDbAttribute> attribute;
        if (!DIAG_CHECK(reference.openAttribute(attribute.receive(), attributes->objectId(),
                                                AcDb::kForWrite) == Acad::eOk)) {
            continue;
        }
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

Insertion insertMarker(const std::wstring& blockName, const AcGePoint3d& point,
                       const std::wstring& firstText, const std::wstring& otherText) {
    AcDbDatabase* database = workingDatabase();
    if (database == nullptr) return kInsertionRefused;
    Opened<AcDbBlockTable> blocks;
    if (!DIAG_CHECK(database->getSymbolTable(blocks.receive(), AcDb::kForRead) == Acad::eOk)) {
        return kInsertionRefused;
    }
    if (!blocks->has(blockName.c_str())) {
        acutPrintf(L"\nBlock definition %s not found. ", blockName.c_str());
        return kNoBlock;
    }
    AcDbObjectId block;
    Opened<AcDbBlockTableRecord> space;
    if (!DIAG_CHECK(blocks->getAt(blockName.c_str(), block) == Acad::eOk) ||
        !DIAG_CHECK(blocks->getAt(currentSpaceName().c_str(), space.receive(), AcDb::kForWrite) ==
                    Acad::eOk)) {
        return kInsertionRefused;
    }
    blocks.close();
    NewObject<AcDbBlockReference> reference(new AcDbBlockReference(point, block));
    DIAG_CHECK(reference->setScaleFactors(AcGeScale3d(1.0)) == Acad::eOk);
    DIAG_CHECK(reference->setLayer((groupPrefix() + GroupSuffix::kLayer).c_str(), Adesk::kTrue) ==
               Acad::eOk);
    DIAG_CHECK(reference->setColorIndex(kByLayer) == Acad::eOk);
    DIAG_CHECK(reference->setLinetype(L"BYLAYER") == Acad::eOk);
    if (!DIAG_CHECK(space->appendAcDbEntity(reference.get()) == Acad::eOk)) {
        return kInsertionRefused;
    }
    appendAttributes(*reference.get(), block, point, MarkerTexts(firstText, otherText));
    return kInserted;
}

bool readFirstAttribute(const AcDbObjectId& entityId, FirstAttribute& first) {
    if (entityId.isErased()) return true;
    Opened<AcDbEntity> entity;
    const bool opened =
        DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), entityId, AcDb::kForRead) == Acad::eOk);
    AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
    if (reference == nullptr) return opened;
    Opened<AcDbBlockTableRecord> block;
    if (!openBlock(*reference, block)) {
        const AcDbObjectId missing = reference->blockTableRecord();
        return missing.isNull() || missing.isErased();
    }
    if (!block->hasAttributeDefinitions()) return true;
    const Iterator<AcDbObjectIterator> attributes(reference->attributeIterator());
    if (attributes.done()) return true;
    Opened<AcDbAttribute> attribute;
    if (!DIAG_CHECK(reference->openAttribute(attribute.receive(), attributes->objectId(),
                                             AcDb::kForRead) == Acad::eOk)) {
        return false;
    }
    first.m_sTag = attribute->tagConst();
    first.m_sText = attribute->textStringConst();
    return true;
}

std::wstring readMarkerText(const AcDbObjectId& entityId, MarkerText wanted) {
    FirstAttribute first;
    readFirstAttribute(entityId, first);
    if (wanted == kMarkerTag || first.m_sTag.empty()) return first.m_sTag;
    const std::wstring prefix = groupPrefix();
    const bool marker = first.m_sTag == prefix + GroupSuffix::kEndMarker ||
                        first.m_sTag == prefix + GroupSuffix::kBeginMarker;
    return marker ? first.m_sText : std::wstring();
}

bool sameTag(const std::wstring& left, const std::wstring& right) {
    return _wcsicmp(left.c_str(), right.c_str()) == 0;
}

void updateMarker(const AcDbObjectId& markerId, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText) {
    Opened<AcDbBlockReference> reference;
    if (!DIAG_CHECK(acdbOpenObject(reference.receive(), markerId, AcDb::kForWrite) == Acad::eOk)) {
        return;
    }
    if (!reference->position().isEqualTo(point, placeTolerance())) {
        DIAG_CHECK(reference->setPosition(point) == Acad::eOk);
    }
    if (blockHasAttributeDefinitions(*reference.get())) {
        rewriteAttributes(*reference.get(), point, MarkerTexts(firstText, otherText));
    }
}
