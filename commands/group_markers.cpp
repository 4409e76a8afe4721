// Reads single markers and links pairs of them.
#include "group_markers.h"

#include "diagnostics.h"
#include "group_naming.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupCommands";

}  // namespace

std::wstring readMarkerCount(const AcDbObjectId& markerId) {
    Opened<AcDbEntity> entity;
    DIAG_ASSERT(acdbOpenAcDbEntity(entity.receive(), markerId, AcDb::kForRead) == Acad::eOk,
                L"acdbOpenAcDbEntity(pEnt, objId, AcDb::kForRead) == Acad::eOk");
    AcDbBlockReference* reference = AcDbBlockReference::cast(entity.get());
    if (reference == nullptr) return std::wstring();
    Opened<AcDbBlockTableRecord> definition;
    DIAG_ASSERT(acdbOpenObject(definition.receive(), reference->blockTableRecord(),
                               AcDb::kForRead) == Acad::eOk,
                L"acdbOpenObject(pBlkDefRecord, blkDefId, AcDb::kForRead) == Acad::eOk");
    if (!definition.isOpen() || !definition->hasAttributeDefinitions()) return std::wstring();
    const Iterator<AcDbObjectIterator> attributes(reference->attributeIterator());
    if (!attributes.isThere()) return std::wstring();
    // The count stands in the second attribute; the first is never looked at.
    attributes->start();
    attributes->step();
    if (attributes.done()) return std::wstring();
    Opened<AcDbAttribute> attribute;
    const bool opened = reference->openAttribute(attribute.receive(), attributes->objectId(),
                                                 AcDb::kForRead) == Acad::eOk;
    DIAG_ASSERT(opened, L"pBlkRef->openAttribute(pAtt, attId, AcDb::kForRead) == Acad::eOk");
    const bool counts =
        opened && attribute->tagConst() == groupPrefix() + GroupSuffix::kBeginMarker;
    return counts ? attribute->textStringConst() : L"";
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
    begin.m_id = markerId;
    begin.m_sHandle = handleText(markerId);
    begin.m_sCount = readMarkerCount(markerId);
    readPosition(markerId, begin.m_position);
}

void linkMarkers(const Marker& begin, const Marker& end, const std::wstring& count) {
    updateMarker(begin.m_id, begin.m_position, end.m_sHandle, count);
    updateMarker(end.m_id, end.m_position, begin.m_sHandle, count);
}
