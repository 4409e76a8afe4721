// Follows copy, mirror and clipboard commands, regeneration and the save of the drawing.
#include "boundary.h"
#include "document_data.h"
#include "GroupCommands.h"
#include "host_services.h"
#include "pick_reactor.h"

namespace {

bool isCommand(const ACHAR* name, const wchar_t* expected) { return _wcsicmp(name, expected) == 0; }
bool copiesInDrawing(const ACHAR* name) {
    return isCommand(name, L"COPY") || isCommand(name, L"MIRROR");
}
bool copiesToClipboard(const ACHAR* name) {
    return isCommand(name, L"COPYCLIP") || isCommand(name, L"CUTCLIP");
}
bool pastesGroups(const ACHAR* name) {
    return isCommand(name, L"PASTECLIP") && docData().m_bClipboardHasGroups;
}

/// Everything behind the drawing's last entity of now will be a copy.
void markEndOfDrawing() {
    ads_name last = {};
    acdbEntLast(last);  // in an empty drawing there is none; the id is then what the host makes it
    acdbGetObjectId(docData().m_idLastBeforeCommand, last);
}

void forgetGatheredIds() { docData().m_aGatheredIds.setLogicalLength(0); }

void noteStart(const ACHAR* name) {
    docData().m_bReportGathering = false;
    if (docData().m_bSelectionHasGroups) {
        if (copiesToClipboard(name)) {
            docData().m_bClipboardHasGroups = true;
            docData().m_bReactToPickfirst = false;
        }
        if (copiesInDrawing(name)) markEndOfDrawing();
    }
    if (pastesGroups(name)) markEndOfDrawing();
    if (isCommand(name, L"REGEN")) updateAllGroups();
}

void followEnd(const ACHAR* name) {
    if (docData().m_bSelectionHasGroups && copiesInDrawing(name)) {
        relinkCopiedGroups();
        forgetGatheredIds();
        docData().m_bReactToPickfirst = true;
    }
    // After a copy to the clipboard the selection still stands, with its groups.
    docData().m_bSelectionHasGroups = copiesToClipboard(name);
    if (pastesGroups(name)) {
        relinkCopiedGroups();
        forgetGatheredIds();
        updateAllGroups();
    }
}

}  // namespace

void KESTpickGroupEnt::commandWillStart(const ACHAR* name) {
    withinBoundary([&] { noteStart(name); });
}

void KESTpickGroupEnt::commandEnded(const ACHAR* name) {
    withinBoundary([&] { followEnd(name); });
}

// Only a cancelled COPYCLIP forgets; the other commands are left alone on purpose.
void KESTpickGroupEnt::commandCancelled(const ACHAR* name) {
    withinBoundary([&] {
        if (isCommand(name, L"COPYCLIP")) forgetGatheredIds();
    });
}

void KESTpickGroupEnt::beginSave(AcDbDatabase* database, const ACHAR*) {
    withinBoundary([&] {
        if (database == workingDatabase()) updateAllGroups();
    });
}
