// Command-line output, failure messages and the display of single entities.
#include "host/objectarx/command_line.h"

#include <cstdarg>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/editor/state/caller_name.h"
#include "host/editor/state/current_drawing.h"
#include "host/objects/result_list.h"
#include "host/text/wide_format.h"

using namespace host;

int acutPrintf(const ACHAR* format, ...) {
    if (callFails("acutPrintf") || format == nullptr) return RTERROR;
    std::va_list arguments;
    va_start(arguments, format);
    std::wstring text = formatWide(format, arguments);
    va_end(arguments);
    recordEffect(EffectKind::CommandLine, std::move(text));
    return RTNORM;
}

int acedPrompt(const ACHAR* text) {
    if (callFails("acedPrompt") || text == nullptr) return RTERROR;
    recordEffect(EffectKind::CommandLine, text);
    return RTNORM;
}

void acdbFail(const ACHAR* text) {
    const std::wstring name = libraryNameAt(__builtin_return_address(0));
    recordEffect(EffectKind::CommandLine,
                 L"Application " + name + L" ERROR: " + (text == nullptr ? L"" : text));
}

int acedRedraw(const ads_name entity, int mode) {
    if (callFails("acedRedraw")) return RTERROR;
    if (mode < 1 || mode > 4) return RTREJ;
    DocumentState* state = currentDocumentState();
    if (state == nullptr) return RTERROR;
    if (entity == nullptr) {  // the whole viewport; what is highlighted stays so
        recordEffect(EffectKind::Redraw, std::to_wstring(mode));
        return RTNORM;
    }
    const ObjectBody* body = entityOf(entity, "acedRedraw");
    if (body == nullptr) return RTERROR;
    const Adesk::UInt64 word = idOfName(entity).asWord();
    if (mode == 3) state->highlighted.insert(word);
    if (mode == 4) state->highlighted.erase(word);
    recordEffect(EffectKind::Redraw, std::to_wstring(mode) + L" " + handleText(*body));
    return RTNORM;
}
