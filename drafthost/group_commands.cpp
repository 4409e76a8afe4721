// GROUPLIST and PICTURE, and the watch over saves.
#include "drafthost/group_commands.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "drafthost/drawing_inspection.h"
#include "drafthost/groups_report.h"
#include "drafthost/output.h"
#include "host/commands/open_drawing.h"
#include "host/control/effects.h"
#include "host/dxf/file/file_access.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/state/document_state.h"
#include "host/objectarx/editor.h"
#include "host/store/store.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"
#include "inspection/report.h"

namespace {

/// What the last save of each drawing did, by the serial number of its store.
std::map<std::uint32_t, std::vector<std::string>>& lastSaves() {
    static std::map<std::uint32_t, std::vector<std::string>> saves;
    return saves;
}

host::CommandStatus runGroupList(host::Store& store) {
    std::string frames;
    std::string text = inspection::listText("", inspectDrawing(*store.database, true, &frames));
    if (!frames.empty()) text += frames + "\n";
    for (const std::string& line : lastSaves()[store.serial()])
        text += line + "\n";
    text.pop_back();
    host::printLine(host::fromUtf8(text));
    return host::CommandStatus::Done;
}

host::CommandStatus runPicture(host::Store& store) {
    const host::Answer answer = host::prompt(L"\nEnter name of picture file: ");
    if (answer.kind != host::Answer::Kind::Text) return host::CommandStatus::Cancelled;
    std::string path = host::withHome(host::toUtf8(answer.text));
    const std::string name = path.substr(host::folderPart(path).size());
    if (name.find('.') == std::string::npos) path += ".svg";
    const std::string drawing = host::toUtf8(host::currentDocumentState()->fileName);
    const std::string why = writePicture(*store.database, store.currentSpace(),
                                         drawing.substr(host::folderPart(drawing).size()), path);
    if (!why.empty()) host::printLine(host::fromUtf8(why));
    return why.empty() ? host::CommandStatus::Done : host::CommandStatus::Failed;
}

const host::CommandTable kGroupCommands = {
    {L"GROUPLIST", 0, host::onDrawing<runGroupList>,
     L"lists the groups of the drawing and what is wrong with them"},
    {L"PICTURE", 0, host::onDrawing<runPicture>,
     L"draws the current space and its groups as SVG: file"},
};

AcEditor* editor() { return static_cast<AcEditor*>(acrxSysRegistry()->at(L"AcEditor")); }

}  // namespace

class SaveWatch::Reactor : public AcEditorReactor {
  public:
    explicit Reactor(std::function<void(const std::string&)> tell) : m_tell(std::move(tell)) {}
    void beginSave(AcDbDatabase* drawing, const ACHAR*) override {
        m_before = inspectDrawing(*drawing, false);
    }
    void saveComplete(AcDbDatabase* drawing, const ACHAR* name) override {
        std::vector<std::string>& lines = lastSaves()[drawing->store().serial()];
        lines.clear();
        if (m_before.groups.empty()) return;
        lines = inspection::changes(m_before, inspectDrawing(*drawing, false));
        for (const std::string& line : lines)
            m_tell(host::toUtf8(name) + ": " + line);
    }

  private:
    std::function<void(const std::string&)> m_tell;
    inspection::Inspection m_before;
};

void registerGroupCommands() { host::registerBuiltins(kGroupCommands); }

SaveWatch::SaveWatch(std::function<void(const std::string&)> tell)
    : m_reactor(std::make_unique<Reactor>(std::move(tell))) {
    editor()->addReactor(m_reactor.get());
}

SaveWatch::~SaveWatch() { editor()->removeReactor(m_reactor.get()); }
