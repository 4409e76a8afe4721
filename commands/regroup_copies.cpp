// Makes groups of their own of what a copying command appended to the drawing.
#include <string>

#include "document_data.h"
#include "group_markers.h"
#include "group_naming.h"
#include "group_walk.h"
#include "GroupCommands.h"
#include "handle_text.h"
#include "marker.h"

void relinkCopiedGroups() {
    const std::wstring prefix = groupPrefix();
    const std::wstring beginTag = prefix + GroupSuffix::kBeginMarker;
    const std::wstring endTag = prefix + GroupSuffix::kEndMarker;
    std::wstring handle = nextEntityHandle(docData().m_idLastBeforeCommand);
    Marker begin;
    Marker end;
    bool openPair = false;
    while (!handle.empty()) {
        const AcDbObjectId id = idFromHandleText(handle);
        const std::wstring tag = readMarkerText(id, kMarkerTag);
        if (sameTag(tag, beginTag)) {
            // A begin marker met before any end marker replaces the one before it.
            readBeginMarker(id, begin);
            openPair = true;
        } else if (sameTag(tag, endTag)) {
            end.m_id = id;
            end.m_sHandle = handleText(id);
            readPosition(id, end.m_position);
            if (openPair) linkMarkers(begin, end, begin.m_sCount);
            openPair = false;
        }
        handle = nextEntityHandle(id);
    }
}
