// Reads single markers and links pairs of them.
#include "group_markers.h"

#include "command_source.h"
#include "group_naming.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"

namespace {

constexpr CheckSource DIAG_SOURCE = kGroupMarkers;

}  // namespace

std::wstring readMarkerCount(const AcDbObjectId& markerId) {
    Opened<AcDbEntity> entity;
    DIAG_ASSERT(acdbOpenAcDbEntity(entity.receive(), markerId, AcDb::kForRead) == Acad::eOk,
                L"acdbOpenAcDbEntity(pEnt, objId, AcDb::kForRead) == Acad::eOk");
    AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
    if (reference == nullptr) return {};
    Opened<AcDbBlockTableRecord> definition;
    DIAG_ASSERT(acdbOpenObject(definition.receive(), reference->blockTableRecord(),
                               AcDb::kForRead) == Acad::eOk,
                L"acdbOpenObject(pBlkDefRecord, blkDefId, AcDb::kForRead) == Acad::eOk");
    if (!definition.isOpen() || !definition->hasAttributeDefinitions()) return {};
    const Iterator<AcDbObjectIterator> attributes(reference->attributeIterator());
    if (!attributes.isThere()) return {};
    // The count stands in the second attribute; the first is never looked at.
    attributes->start();
    attributes->step();
    if (attributes->done()) return {};
    Opened<AcDbAttribute> attribute;
    const bool opened = reference->openAttribute(attribute.receive(), attributes->objectId(),
                                                 AcDb::kForRead) == Acad::eOk;
    DIAG_ASSERT(opened, L"pBlkRef->openAttribute(pAtt, attId, AcDb::kForRead) == Acad::eOk");
    if (!opened || attribute->tagConst() != groupPrefix() + GroupSuffix::kBeginMarker) return {};
    return attribute->textStringConst();
}

void readPosition(const AcDbObjectId& markerId, AcGePoint3d& position) {
    Opened<AcDbEntity> entity;
    DIAG_ASSERT(acdbOpenAcDbEntity(entity.receive(), markerId, AcDb::kForRead) == Acad::eOk,
                L"acdbOpenAcDbEntity(pEnt, blkId, AcDb::kForRead) == Acad::eOk");
    const AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
    if (reference != nullptr) {
        position = reference->position();
    } else {
        acutPrintf(L"\n\n !!! BANG Object is not a AcDbBlockReference!!!\n");
    }
}

void readBeginMarker(const AcDbObjectId& markerId, Marker& begin) {
    begin.id = markerId;
    begin.handle = handleText(markerId);
    begin.count = readMarkerCount(markerId);
    readPosition(markerId, begin.position);
}

void linkMarkers(const Marker& begin, const Marker& end, const std::wstring& count) {
    updateMarker(begin.id, begin.position, end.handle, count);
    updateMarker(end.id, end.position, begin.handle, count);
}
