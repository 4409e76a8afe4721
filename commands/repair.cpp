// The repair pass: brings every group of the drawing back in line with its markers.
#include <string>

#include "decimal_text.h"
#include "diagnostics.h"
#include "end_search.h"
#include "group_forming.h"
#include "group_markers.h"
#include "group_naming.h"
#include "group_walk.h"
#include "GroupCommands.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"
#include "number_text.h"
#include "object_ids.h"
#include "selection.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupCommands";
const int kBlockName = 2;
/// Matches the blocks of both kinds of marker.
const wchar_t* const kAnyMarker = L"_G?";

/// Ids of all block references in the drawing whose block name matches, in the host's order.
AcDbObjectIdArray referencesOf(const std::wstring& blockName, const wchar_t* conversionText) {
    // Group code 0 would end the list: it is passed as RTDXF0.
    const ResultBuffers filter(acutBuildList(RTDXF0, L"INSERT", kBlockName, blockName.c_str(), 0));
    AcDbObjectIdArray ids(0, kIdListGrowth);
    OwnedSelection selection;
    // Without its filter the selection would take the whole drawing.
    if (filter.get() == nullptr ||
        acedSSGet(L"X", nullptr, nullptr, filter.get(), selection.name()) != RTNORM) {
        return ids;
    }
    const Adesk::Int32 length = selectionLength(selection.name(), DIAG_HERE);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ids.append(idAt(selection.name(), i, conversionText, DIAG_HERE));
    }
    DIAG_CHECK(selection.free() == RTNORM);
    return ids;
}

struct RepairCounts {
    RepairCounts() : m_nUpdated(0), m_nDeleted(0) {}

    int m_nUpdated;
    int m_nDeleted;
};

/// Settles the group of a begin marker by what stands between it and the end marker that follows. A
/// begin marker that no end marker follows is left alone. Whatever stands in between counts as an
/// entity, another group's begin marker included: groups that got into each other are dissolved.
void repairGroup(const AcDbObjectId& beginId, EndSearch& ends, RepairCounts& counts) {
    Marker begin;
    readBeginMarker(beginId, begin);
    const EndSearch::Answer found = ends.find(beginId);
    if (found.m_idEnd.isNull()) return;
    Marker end;
    end.m_id = found.m_idEnd;
    end.m_sHandle = found.m_sHandle;
    readPosition(end.m_id, end.m_position);
    const int between = found.m_nBetween;
    const int expected = digitsOf(begin.m_sCount);
    if (between == expected) {
        linkMarkers(begin, end, begin.m_sCount);
        ++counts.m_nUpdated;
    } else if (between == 0 || between > expected) {
        ends.erasePair(begin.m_id, end.m_id);
        ++counts.m_nDeleted;
    } else {
        linkMarkers(begin, end, decimalText(between));
        ++counts.m_nUpdated;
    }
}

/// Erases markers whose partner does not exist; so goes also what only looks like a marker. A
/// partner that was erased since the drawing was loaded exists still: undo may bring it back.
void purgePartnerless(const std::wstring& prefix) {
    const AcDbObjectIdArray markers =
        referencesOf(prefix + kAnyMarker, L"acdbGetObjectId(objId, ent) == Acad::eOk");
    for (int i = 0; i < markers.length(); ++i) {
        const std::wstring partner = readMarkerText(markers[i], kMarkerText);
        if (idFromHandleText(partner).isNull()) eraseObject(markers[i]);
    }
}

/// Erases pairs of markers with nothing between them.
void purgeEmptyPairs(const std::wstring& prefix) {
    const AcDbObjectIdArray begins = referencesOf(prefix + GroupSuffix::kBeginMarker,
                                                  L"acdbGetObjectId(objId2, ent) == Acad::eOk");
    for (int i = 0; i < begins.length(); ++i) {
        const std::wstring next = nextEntityHandle(begins[i]);
        const std::wstring partner = readMarkerText(begins[i], kMarkerText);
        const AcDbObjectId end = idFromHandleText(partner);
        if (end.isNull() || partner != next) continue;
        eraseObject(end);
        eraseObject(begins[i]);
    }
}

}  // namespace

void updateAllGroups() {
    const std::wstring prefix = groupPrefix();
    const AcDbObjectIdArray begins = referencesOf(prefix + GroupSuffix::kBeginMarker,
                                                  L"acdbGetObjectId(objIdGB, ent) == Acad::eOk");
    EndSearch ends(prefix + GroupSuffix::kEndMarker);
    RepairCounts counts;
    for (int i = 0; i < begins.length(); ++i) {
        repairGroup(begins[i], ends, counts);
    }
    if (counts.m_nUpdated >= 1) acutPrintf(L"\n%d Groups Updated. ", counts.m_nUpdated);
    if (counts.m_nDeleted > 0) acutPrintf(L"\n%d Groups Deleted. ", counts.m_nDeleted);
    purgeStrayMarkers();
}

void purgeStrayMarkers() {
    const std::wstring prefix = groupPrefix();
    purgePartnerless(prefix);
    purgeEmptyPairs(prefix);
}
