// ZOOM. Nothing is displayed: what the view decides is how far the pick box reaches.
#include <algorithm>
#include <cmath>
#include <sstream>

#include "host/commands/commands.h"
#include "host/commands/open_drawing.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/picking/view.h"
#include "host/text/numbers.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

CommandStatus tell(const Store& store, bool changed) {
    std::wostringstream line;
    if (changed)
        line << L"The view is " << viewHeight(store) << L" units high.";
    else
        line << L"There is nothing to show there; the view stays.";
    printLine(line.str());
    return CommandStatus::Done;
}

CommandStatus zoomExtents(Store& store) {
    const std::optional<Box> extents = extentsOf(store);
    return tell(store, extents && showBox(store, *extents));
}

CommandStatus zoomWindow(Store& store, AcGePoint3d corner, bool given) {
    AcGePoint3d opposite;
    if (!given && promptPoint(L"\nSpecify first corner: ", nullptr, corner) != PromptStatus::Ok)
        return CommandStatus::Cancelled;
    if (promptPoint(L"\nSpecify opposite corner: ", &corner, opposite) != PromptStatus::Ok)
        return CommandStatus::Cancelled;
    return tell(store,
                showBox(store, {std::min(corner.x, opposite.x), std::min(corner.y, opposite.y),
                                std::max(corner.x, opposite.x), std::max(corner.y, opposite.y)}));
}

/// "2x" is twice as close as now, "2" twice as close as all of the drawing. False for no factor.
bool zoomFactor(Store& store, std::wstring text) {
    const bool fromNow = text.size() > 1 && text.back() == L'X';
    if (fromNow) text.pop_back();
    const double factor = parseReal(toUtf8(text)).value_or(0);
    if (!(factor > 0) || !std::isfinite(factor)) return false;
    const std::optional<Box> extents = fromNow ? std::nullopt : extentsOf(store);
    tell(store, (!extents || showBox(store, *extents)) && scaleView(store, 1 / factor));
    return true;
}

CommandStatus runZoom(Store& store) {
    for (;;) {
        const Answer answer = prompt(
            L"\nSpecify corner of window or scale factor (n or nX), or "
            L"[All/Extents/Window] <Extents>: ");
        const std::wstring typed = foldCase(answer.text);
        if (answer.kind == Answer::Kind::Enter) return zoomExtents(store);
        if (answer.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
        for (const wchar_t* all : {L"A", L"ALL", L"E", L"EXTENTS"})
            if (typed == all) return zoomExtents(store);
        if (typed == L"W" || typed == L"WINDOW") return zoomWindow(store, {}, false);
        if (const auto corner = readPoint(answer.text, nullptr))
            return zoomWindow(store, *corner, true);
        if (zoomFactor(store, typed)) return CommandStatus::Done;
        if (!wrongAnswer(L"\"" + answer.text + L"\" is no corner, factor, A, E or W"))
            return CommandStatus::Cancelled;
    }
}

}  // namespace

const CommandTable kViewCommands = {
    {L"ZOOM", ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW, onDrawing<runZoom>,
     L"how far picks reach: E extents, W two corners, a factor n or nX"},
};

}  // namespace host
