// Compares the groups before and after each repair.
#include "drafthost/groups/group_watch.h"

#include <algorithm>
#include <utility>

#include "drafthost/groups/drawing_inspection.h"
#include "host/dxf/check/drawing_check.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/document_state.h"
#include "host/text/text_codec.h"
#include "inspection/report.h"

namespace {

AcEditor* editor() { return static_cast<AcEditor*>(acrxSysRegistry()->at(L"AcEditor")); }

/// What messages call the repair in a command; empty when none belongs to it.
std::string repairIn(const std::wstring& command) {
    return command == L"REGEN" ? "REGEN" : command == L"PASTECLIP" ? "the paste" : "";
}

}  // namespace

GroupWatch::GroupWatch(const Job& job, std::function<void(const std::string&)> tell)
    : m_job(job), m_say(std::move(tell)) {
    editor()->addReactor(this);
}

GroupWatch::~GroupWatch() { editor()->removeReactor(this); }

void GroupWatch::beginSave(AcDbDatabase* drawing, const ACHAR* name) {
    warnOfDamage(drawing->store(), host::toUtf8(name));
    look(*drawing);
}

void GroupWatch::saveComplete(AcDbDatabase* drawing, const ACHAR* name) {
    tell(*drawing, host::toUtf8(name), "the save");
}

void GroupWatch::commandWillStart(const ACHAR* name) {
    host::DocumentState* document = host::currentDocumentState();
    if (document != nullptr && !repairIn(name).empty()) look(*document->database);
}

void GroupWatch::commandEnded(const ACHAR* name) {
    const std::string repair = repairIn(name);
    if (repair.empty()) return;
    // The module hears of the end too, and later.
    host::afterCommand([this, repair] {
        host::DocumentState* document = host::currentDocumentState();
        if (document != nullptr)
            tell(*document->database, host::toUtf8(document->fileName), repair);
    });
}

/// Not as soon as a drawing is opened: a check takes about as long as loading does, and only who
/// writes needs to know. No command adds damage, so what is found was there before.
void GroupWatch::warnOfDamage(const host::Store& store, const std::string& name) {
    if (!m_checked.insert(store.serial()).second) return;
    const std::vector<host::Finding> found = host::checkDrawing(store);
    const auto errors = std::count_if(found.begin(), found.end(), [](const host::Finding& finding) {
        return finding.severity == host::Severity::Error;
    });
    const std::size_t count = store.supplied + static_cast<std::size_t>(errors);
    if (count == 0) return;
    m_say(m_job.nameFor(name) + ": damaged before: " + host::amount(count, "finding", "findings") +
          ", see --check");
}

void GroupWatch::look(AcDbDatabase& drawing) { m_before = inspectDrawing(drawing, false); }

void GroupWatch::tell(AcDbDatabase& drawing, const std::string& name, const std::string& repair) {
    std::vector<std::string>& lines = m_changes[drawing.store().serial()];
    lines.clear();
    if (m_before.groups.empty()) return;
    lines = inspection::changes(m_before, inspectDrawing(drawing, false), repair);
    for (const std::string& line : lines)
        m_say(m_job.nameFor(name) + ": " + line);
}
