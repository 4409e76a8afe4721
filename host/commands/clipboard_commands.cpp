// COPYCLIP, CUTCLIP and PASTECLIP, through a drawing that the application keeps.
#include <algorithm>
#include <memory>

#include "host/clone/wblock_clone.h"
#include "host/commands/commands.h"
#include "host/commands/entity_selection.h"
#include "host/commands/open_drawing.h"
#include "host/content/fields.h"
#include "host/control/effects.h"
#include "host/control/switches.h"
#include "host/dxf/load/load_drawing.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/state/active_command.h"
#include "host/objectarx/database.h"
#include "host/picking/outline.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// The temporary drawing behind the clipboard. Empty until the first copy.
struct Clipboard {
    std::unique_ptr<AcDbDatabase> drawing;
    Vec base;
};

Clipboard& clipboard() {
    static Clipboard& instance = *new Clipboard;
    return instance;
}

/// Lower left corner of what is drawn of the entities; the origin when nothing is.
Vec cornerOf(const Store& store, const std::vector<ObjectBody*>& entities) {
    OutlineMaker maker(store);
    std::optional<Box> box;
    for (const ObjectBody* entity : entities)
        extend(box, maker.outlineOf(*entity).bounds());
    return box ? Vec{box->left, box->bottom, 0} : Vec{};
}

CommandStatus fillClipboard(Store& store, const std::vector<ObjectBody*>& entities,
                            const char* done) {
    EntityTransform unmoved(displacement({}), done);
    if (!canTransform(unmoved, entities)) return CommandStatus::Failed;
    Clipboard filled;
    filled.drawing = std::make_unique<AcDbDatabase>(newDrawing());
    filled.base = cornerOf(store, entities);
    Store& target = filled.drawing->store();
    wblockClone({entities.begin(), entities.end()}, target, target.at(target.modelSpace()));
    printLine(std::to_wstring(entities.size()) + L" copied to the clipboard, base point X=" +
              fromUtf8(formatReal(filled.base.x)) + L" Y=" + fromUtf8(formatReal(filled.base.y)));
    clipboard() = std::move(filled);
    return CommandStatus::Done;
}

CommandStatus copyToClipboard(Store& store, const std::vector<ObjectBody*>& entities) {
    return fillClipboard(store, entities, "copied");
}

CommandStatus runCopyClip() {
    const CommandStatus status = editSelection(Locked::Taken, copyToClipboard);
    if (switches().copyClipNotifiesPickfirst) notifyUnchangedPickfirst();
    return status;
}

CommandStatus cutToClipboard(Store& store, const std::vector<ObjectBody*>& entities) {
    const CommandStatus status = fillClipboard(store, entities, "cut");
    if (status == CommandStatus::Done) eraseEntities(entities);
    return status;
}

/// A viewport shows the model on paper; in model space the real host drops it (assumed).
bool mayHold(const ObjectBody& space, const std::vector<ObjectBody*>& entities) {
    const auto isViewport = [](const ObjectBody* entity) { return entity->type() == "VIEWPORT"; };
    if (isPaperSpace(space) || std::none_of(entities.begin(), entities.end(), isViewport))
        return true;
    printProblem(L"VIEWPORT cannot be pasted into model space; go to a layout or copy without it.");
    return false;
}

CommandStatus runPasteClip(Store& store) {
    if (clipboard().drawing == nullptr) {
        printProblem(L"The clipboard is empty: use COPYCLIP or CUTCLIP first.");
        return CommandStatus::Failed;
    }
    AcGePoint3d point;
    if (promptPoint(L"\nSpecify insertion point: ", nullptr, point) != PromptStatus::Ok)
        return CommandStatus::Cancelled;
    Store& source = clipboard().drawing->store();
    std::vector<ObjectBody*> entities;
    for (ObjectBody& entity : source.children(source.modelSpace()))
        entities.push_back(&entity);
    ObjectBody& space = store.at(store.currentSpace());
    EntityTransform moved(displacement(Vec{point.x, point.y, point.z} - clipboard().base), "moved");
    if (!mayHold(space, entities) || !canTransform(moved, entities)) return CommandStatus::Failed;
    moved.apply(store, wblockClone({entities.begin(), entities.end()}, store, space));
    return CommandStatus::Done;
}

constexpr Adesk::Int32 kKeepsPickfirst = ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW;

}  // namespace

void dropClipboard() { clipboard() = {}; }

const CommandTable kClipboardCommands = {
    {L"COPYCLIP", kKeepsPickfirst, runCopyClip,
     L"copies entities to the clipboard; base point is their lower left corner"},
    {L"CUTCLIP", ACRX_CMD_USEPICKSET, onSelection<Locked::LeftOut, cutToClipboard>,
     L"the same, and erases them"},
    {L"PASTECLIP", 0, onDrawing<runPasteClip>,
     L"inserts what the clipboard holds: insertion point"},
};

}  // namespace host
