// The commands that the program adds to a session.
#include "drafthost/group_commands.h"

#include <string>
#include <vector>

#include "drafthost/files/picture_file.h"
#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/groups/group_each.h"
#include "drafthost/groups/group_repair.h"
#include "drafthost/reports/pictures.h"
#include "host/application/session.h"
#include "host/commands/open_drawing.h"
#include "host/dxf/file/file_access.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/state/document_state.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"
#include "inspection/report.h"

namespace {

GroupWatch* groupWatch = nullptr;

/// Those that no picture may replace.
std::vector<std::string> openDrawings() {
    std::vector<std::string> files;
    for (const host::HostDocument* document : host::currentSession()->documents.all())
        files.push_back(host::toUtf8(document->fileName()));
    return files;
}

host::CommandStatus runGroupList(host::Store& store) {
    std::string frames;
    std::string text = inspection::listText("", inspectDrawing(*store.database, true, &frames));
    if (!frames.empty()) text += frames + "\n";
    for (const std::string& line : groupWatch->lastChanges(store.serial()))
        text += line + "\n";
    text.pop_back();
    tellOnCommandLine(text);
    return host::CommandStatus::Done;
}

host::CommandStatus runPicture(host::Store& store) {
    std::string path;
    if (host::promptFile(L"\nEnter name of picture file: ", path) != host::PromptStatus::Ok)
        return host::CommandStatus::Cancelled;
    const std::string name = path.substr(host::folderPart(path).size());
    if (name.find('.') == std::string::npos) path += ".svg";
    std::string why = "the name does not end in .svg";
    if (isPictureName(path)) {
        const std::string drawing = host::toUtf8(host::currentDocumentState()->fileName);
        const std::string svg = pictureOf(*store.database, store.currentSpace(), drawing);
        why = writePictureFile(path, svg, openDrawings());
    }
    if (why.empty()) return host::CommandStatus::Done;
    tellOnCommandLine(path + ": the picture cannot be written: " + why);
    return host::CommandStatus::Failed;
}

const host::CommandTable kGroupCommands = {
    {L"GROUPEACH", 0, host::onDrawing<runGroupEach>,
     L"one group for each layer, block or color: by what, names, least number of entities", true},
    {L"GROUPREPAIR", 0, host::onDrawing<runGroupRepair>,
     L"repairs groups, takes away stray markers and group records", true},
    {L"GROUPLIST", 0, host::onDrawing<runGroupList>,
     L"lists the groups of the drawing and what is wrong with them"},
    {L"PICTURE", 0, host::onDrawing<runPicture>,
     L"draws the current space and its groups as SVG: file"},
};

}  // namespace

void registerGroupCommands(GroupWatch* watch) {
    groupWatch = watch;
    host::registerBuiltins(kGroupCommands);
}
