// Forms groups by re-cloning their members between two new markers.
#include "group_forming.h"

#include <string>

#include "current_space.h"
#include "diagnostics.h"
#include "group_naming.h"
#include "group_record.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"

namespace {

constexpr wchar_t DIAG_SOURCE[] = L"GroupForming";
constexpr int kListGrowth = 8;
constexpr const wchar_t* kProceed = L"Continue";
/// Stands in a begin marker until its end marker exists.
constexpr const wchar_t* kEndMarkerPending = L"ENT_HANDL";

/// The confirmation step of forming a group. Its answer is fixed: nobody is asked.
std::wstring confirmForming() { return kProceed; }

Adesk::Int32 lengthOf(const ads_name selection) {
    Adesk::Int32 length = 0;
    DIAG_CHECK(acedSSLength(selection, &length) == RTNORM);
    return length;
}

/// Id of the selection's entity at `index`; null when it cannot be had.
AcDbObjectId idAt(const ads_name selection, Adesk::Int32 index) {
    ads_name name = {};
    AcDbObjectId id;
    const bool named = DIAG_CHECK(acedSSName(selection, index, name) == RTNORM);
    if (!named) return id;
    DIAG_CHECK(acdbGetObjectId(id, name) == Acad::eOk);
    return id;
}

/// What stands last once a marker was inserted. Null when the marker was refused: then the last
/// entity is the user's, and neither is rewritten nor named by the other marker.
AcDbObjectId lastEntity(bool inserted) {
    ads_name name = {};
    AcDbObjectId id;
    const bool found = DIAG_CHECK(acdbEntLast(name) == RTNORM);
    if (!found || !inserted) return id;
    DIAG_CHECK(acdbGetObjectId(id, name) == Acad::eOk);
    return id;
}

/// What a selection that becomes a group holds besides its members.
struct Others {
    AcDbObjectIdArray markers{0, kListGrowth};  // of the groups that it was, to be erased
    AcDbObjectIdArray leftOut{0, kListGrowth};  // what no new member must be made of
    bool known = false;                         // whether the selection could be walked
};

/// Group markers among the selected entities; tags are compared without regard to case here. What
/// cannot be read may be a marker: it is left out, for a marker among the members breaks a group.
Others findMarkers(const ads_name selection, const std::wstring& prefix) {
    const std::wstring beginTag = prefix + GroupSuffix::kBeginMarker;
    const std::wstring endTag = prefix + GroupSuffix::kEndMarker;
    Others others;
    Adesk::Int32 length = 0;
    others.known = DIAG_CHECK(acedSSLength(selection, &length) == RTNORM);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i);
        std::wstring tag;
        if (id.isNull()) {
            others.known = false;
        } else if (!readMarkerTag(id, tag)) {
            others.leftOut.append(id);
        }
        if (_wcsicmp(tag.c_str(), beginTag.c_str()) == 0 ||
            _wcsicmp(tag.c_str(), endTag.c_str()) == 0) {
            others.markers.append(id);
        }
    }
    return others;
}

/// Takes the markers out of the selection; those that stay in it are left out.
void removeMarkers(const ads_name selection, Others& others) {
    for (int i = 0; i < others.markers.length(); ++i) {
        ads_name name = {};
        DIAG_CHECK(acdbGetAdsName(name, others.markers[i]) == Acad::eOk);
        const bool removed = DIAG_CHECK(acedSSDel(name, selection) == RTNORM);
        if (!removed) others.leftOut.append(others.markers[i]);
    }
}

/// What a re-cloning does with the entities of its selection.
struct Sources {
    AcDbObjectIdArray toClone{0, kListGrowth};  // those with the owner of the first one
    AcDbObjectIdArray toErase{0, kListGrowth};  // these and, on purpose, those of other owners
};

/// Gives or takes each entity's record and sorts the entities by owner.
Sources prepareSources(const ads_name selection, Records records,
                       const AcDbObjectIdArray& leftOut) {
    Sources sources;
    AcDbObjectId commonOwner;
    const Adesk::Int32 length = lengthOf(selection);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i);
        if (leftOut.contains(id)) continue;
        if (records == Records::kGive) {
            createXrecord(id);
        } else {
            ungroupEntity(id);
        }
        Opened<AcDbEntity> entity;
        const bool opened =
            DIAG_CHECK(acdbOpenAcDbEntity(entity.receive(), id, AcDb::kForRead) == Acad::eOk);
        if (!opened) continue;
        if (commonOwner.isNull()) commonOwner = entity->ownerId();
        if (entity->ownerId() == commonOwner) sources.toClone.append(id);
        sources.toErase.append(id);
    }
    return sources;
}

void eraseAll(const AcDbObjectIdArray& ids) {
    for (int i = 0; i < ids.length(); ++i) {
        eraseObject(ids[i]);
    }
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
    const std::wstring tag = readMarkerText(entityId, MarkerText::kTag);
    if (tag == prefix + GroupSuffix::kEndMarker || tag == prefix + GroupSuffix::kBeginMarker) {
        eraseObject(entityId);
    }
    return false;
}

void recloneIntoCurrentSpace(const ads_name selection, Records records,
                             const AcDbObjectIdArray& leftOut) {
    Sources sources = prepareSources(selection, records, leftOut);
    AcDbObjectId space = currentSpaceId();
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    AcDbIdMapping clones;
    const bool cloned =
        DIAG_CHECK(database != nullptr &&
                   database->deepCloneObjects(sources.toClone, space, clones, false) == Acad::eOk);
    if (cloned) eraseAll(sources.toErase);  // a drawing must not lose what could not be cloned
}

void formGroup(const ads_name selection, const AcGePoint3d& point) {
    if (confirmForming() != kProceed) return;
    const std::wstring prefix = groupPrefix();
    Others others = findMarkers(selection, prefix);
    if (!others.known) {  // nothing has changed yet
        DIAG_CHECK(acedSSFree(selection) == RTNORM);
        return;
    }
    removeMarkers(selection, others);
    const std::wstring count = std::to_wstring(lengthOf(selection));

    const AcDbObjectId begin = lastEntity(
        insertMarker(prefix + GroupSuffix::kBeginMarker, point, kEndMarkerPending, count));
    const std::wstring beginHandle = handleText(begin);
    recloneIntoCurrentSpace(selection, Records::kGive, others.leftOut);
    DIAG_CHECK(acedSSFree(selection) == RTNORM);
    const AcDbObjectId end =
        lastEntity(insertMarker(prefix + GroupSuffix::kEndMarker, point, beginHandle, count));
    updateMarker(begin, point, handleText(end), count);
    eraseAll(others.markers);
}
