// Forms groups by re-cloning their members between two new markers.
#include "group_forming.h"

#include <string>

#include "current_space.h"
#include "decimal_text.h"
#include "diagnostics.h"
#include "group_naming.h"
#include "group_record.h"
#include "handle_text.h"
#include "host_guards.h"
#include "host_services.h"
#include "marker.h"
#include "object_ids.h"
#include "selection.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupForming";
const wchar_t* const kConversion = L"acdbGetObjectId(id, entity) == Acad::eOk";
const wchar_t* const kProceed = L"Continue";
/// Stands in a begin marker until its end marker exists.
const wchar_t* const kEndMarkerPending = L"ENT_HANDL";

/// The confirmation step of forming a group. Its answer is fixed: nobody is asked.
std::wstring confirmForming() { return kProceed; }

/// What stands last behind the insertion of a marker: without a block for it, whatever else does.
/// Null when the marker was refused, so that nobody's entity is rewritten in its place.
AcDbObjectId lastEntity(Insertion marker) {
    ads_name name = {};
    AcDbObjectId id;
    if (marker == kInsertionRefused || !DIAG_CHECK(acdbEntLast(name) == RTNORM)) return id;
    DIAG_CHECK(acdbGetObjectId(id, name) == Acad::eOk);
    return id;
}

/// Appends the group markers among the selected entities; tags are compared without regard to case
/// here. False when an entity cannot be read: it may be a marker, and one among the members breaks
/// a group.
bool findMarkers(const ads_name selection, const std::wstring& prefix, AcDbObjectIdArray& markers) {
    const std::wstring beginTag = prefix + GroupSuffix::kBeginMarker;
    const std::wstring endTag = prefix + GroupSuffix::kEndMarker;
    Adesk::Int32 length = 0;
    if (!DIAG_CHECK(acedSSLength(selection, &length) == RTNORM)) return false;
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i, kConversion, DIAG_HERE);
        FirstAttribute first;
        if (id.isNull() || !readFirstAttribute(id, first)) return false;
        if (sameTag(first.m_sTag, beginTag) || sameTag(first.m_sTag, endTag)) markers.append(id);
    }
    return true;
}

/// False when one of the markers stays in the selection.
bool takeOut(const AcDbObjectIdArray& markers, const ads_name selection) {
    for (int i = 0; i < markers.length(); ++i) {
        ads_name name = {};
        if (!DIAG_CHECK(acdbGetAdsName(name, markers[i]) == Acad::eOk) ||
            !DIAG_CHECK(acedSSDel(name, selection) == RTNORM)) {
            return false;
        }
    }
    return true;
}

void putBack(const AcDbObjectIdArray& markers, const ads_name selection) {
    for (int i = 0; i < markers.length(); ++i) {
        ads_name name = {};
        ads_name same = {};
        if (!DIAG_CHECK(acdbGetAdsName(name, markers[i]) == Acad::eOk)) continue;
        DIAG_CHECK(acedSSAdd(name, selection, same) == RTNORM);
    }
}

/// What a re-cloning does with the entities of its selection.
struct Sources {
    Sources()
        : m_aChanged(0, kIdListGrowth),
          m_aToClone(0, kIdListGrowth),
          m_aToErase(0, kIdListGrowth) {}

    AcDbObjectIdArray m_aChanged;  // those whose record was given or taken away
    AcDbObjectIdArray m_aToClone;  // those with the owner of the first one
    AcDbObjectIdArray m_aToErase;  // these and, on purpose, those of other owners
};

/// Gives or takes each entity's record and sorts the entities by owner; false, and no further, at
/// one that cannot be read.
bool prepareSources(const ads_name selection, Records records, Sources& sources) {
    AcDbObjectId commonOwner;
    Adesk::Int32 length = 0;
    if (!DIAG_CHECK(acedSSLength(selection, &length) == RTNORM)) return false;
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i, kConversion, DIAG_HERE);
        const bool changed = records == kGiveRecords ? createXrecord(id) : ungroupEntity(id);
        if (changed) sources.m_aChanged.append(id);
        Opened<AcDbEntity> entity;
        if (!DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), id, AcDb::kForRead) == Acad::eOk)) {
            return false;
        }
        if (commonOwner.isNull()) commonOwner = entity->ownerId();
        if (entity->ownerId() == commonOwner) sources.m_aToClone.append(id);
        sources.m_aToErase.append(id);
    }
    return true;
}

/// Markers alone make a group of nothing: the host is not asked what it thinks of that.
bool cloneSources(Sources& sources) {
    if (sources.m_aToClone.length() == 0) return true;
    AcDbObjectId space = currentSpaceId();
    AcDbDatabase* database = workingDatabase();
    AcDbIdMapping clones;
    return database != nullptr &&
           DIAG_CHECK(database->deepCloneObjects(sources.m_aToClone, space, clones, false) ==
                      Acad::eOk);
}

void restoreRecords(const AcDbObjectIdArray& changed, Records records) {
    for (int i = 0; i < changed.length(); ++i) {
        if (records == kGiveRecords) {
            deleteXrecord(changed[i]);
        } else {
            restoreXrecord(changed[i]);
        }
    }
}

void eraseAll(const AcDbObjectIdArray& ids) {
    for (int i = 0; i < ids.length(); ++i) {
        eraseObject(ids[i]);
    }
}

/// Re-clones the selection, which holds no markers, between two new ones and frees it. False, with
/// nothing changed, when there is no begin marker or no clones.
bool bracketClones(const ads_name selection, const AcGePoint3d& point, const std::wstring& prefix) {
    Adesk::Int32 members = 0;
    if (!DIAG_CHECK(acedSSLength(selection, &members) == RTNORM)) return false;
    const std::wstring count = decimalText(members);
    const Insertion inserted =
        insertMarker(prefix + GroupSuffix::kBeginMarker, point, kEndMarkerPending, count);
    if (inserted == kInsertionRefused) return false;
    const AcDbObjectId begin = lastEntity(inserted);
    const std::wstring beginHandle = handleText(begin);
    if (!recloneIntoCurrentSpace(selection, kGiveRecords)) {
        if (inserted == kInserted) eraseObject(begin);
        return false;
    }
    DIAG_CHECK(acedSSFree(selection) == RTNORM);
    // Without an end marker the members stay, clones and all: repair dissolves such a group.
    const AcDbObjectId end =
        lastEntity(insertMarker(prefix + GroupSuffix::kEndMarker, point, beginHandle, count));
    updateMarker(begin, point, handleText(end), count);
    return true;
}

}  // namespace

void eraseObject(const AcDbObjectId& objectId) {
    Opened<AcDbObject> object;
    if (acdbOpenObject(object.receive(), objectId, AcDb::kForWrite) == Acad::eOk) {
        object->erase(true);
    }
}

bool ungroupEntity(const AcDbObjectId& entityId) {
    if (isGroupedEntity(entityId)) {
        deleteXrecord(entityId);
        return true;
    }
    const std::wstring prefix = groupPrefix();
    const std::wstring tag = readMarkerText(entityId, kMarkerTag);
    if (tag == prefix + GroupSuffix::kEndMarker || tag == prefix + GroupSuffix::kBeginMarker) {
        eraseObject(entityId);
    }
    return false;
}

bool recloneIntoCurrentSpace(const ads_name selection, Records records) {
    Sources sources;
    const bool cloned = prepareSources(selection, records, sources) && cloneSources(sources);
    if (cloned) {
        eraseAll(sources.m_aToErase);
    } else {
        restoreRecords(sources.m_aChanged, records);
    }
    return cloned;
}

bool formGroup(const ads_name selection, const AcGePoint3d& point) {
    if (confirmForming() != kProceed) return false;
    const std::wstring prefix = groupPrefix();
    AcDbObjectIdArray oldMarkers(0, kIdListGrowth);
    const bool known = findMarkers(selection, prefix, oldMarkers);
    const bool formed =
        known && takeOut(oldMarkers, selection) && bracketClones(selection, point, prefix);
    if (formed) {
        eraseAll(oldMarkers);
    } else {
        if (known) putBack(oldMarkers, selection);
        acutPrintf(L"\nNo group formed: an entity cannot be read or copied.");
    }
    return formed;
}
