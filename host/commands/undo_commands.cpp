// U, UNDO and REDO of whole commands.
#include "host/commands/commands.h"
#include "host/commands/open_drawing.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/selection/pickfirst.h"
#include "host/store/journal.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Tells what was undone or redone, the names in one line.
CommandStatus finish(const std::vector<std::wstring>& names, const wchar_t* whenNothing) {
    std::wstring line;
    for (const std::wstring& name : names)
        line += (line.empty() ? L"" : L" ") + name;
    printLine(names.empty() ? whenNothing : line);
    dropErasedFromPickfirst();
    return CommandStatus::Done;
}

CommandStatus undo(Store& store, int count) {
    return finish(store.journal().undo(count), L"Everything has been undone.");
}

CommandStatus runU(Store& store) { return undo(store, 1); }

CommandStatus runUndo(Store& store) {
    constexpr long long kMost = 32767;
    for (;;) {
        const Answer answer = prompt(L"\nEnter the number of operations to undo <1>: ");
        if (answer.kind == Answer::Kind::Enter) return undo(store, 1);
        if (answer.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
        const auto count = parseInteger(toUtf8(answer.text));
        if (count && *count > 0 && *count <= kMost) return undo(store, static_cast<int>(*count));
        if (!wrongAnswer(L"\"" + answer.text +
                         L"\" is no number from 1 to 32767; UNDO has no other options here"))
            return CommandStatus::Cancelled;
    }
}

CommandStatus runRedo(Store& store) {
    return finish(store.journal().redo(), L"Everything has been redone.");
}

}  // namespace

const CommandTable kUndoCommands = {
    {L"U", 0, onDrawing<runU>, L"undoes the last command that changed the drawing"},
    {L"UNDO", 0, onDrawing<runUndo>, L"undoes several of them: number"},
    {L"REDO", 0, onDrawing<runRedo>, L"redoes what the last U or UNDO undid"},
};

}  // namespace host
