// System variables over a drawing's header, tables and layouts.
#include "host/editor/state/document_variables.h"
#include "host/store/symbol_records.h"

#include "host/editor/state/current_drawing.h"
#include "host/objectarx/database.h"
#include "host/picking/view.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

constexpr int kPaperViewport = 1;
constexpr int kModelViewport = 2;

Store& storeOf(const DocumentState& document) { return document.database->store(); }

}  // namespace

void readTileMode(const DocumentState& document, SysvarValue& value) {
    value.number = storeOf(document).modelTabCurrent() ? 1 : 0;
}

bool writeTileMode(Store& store, const SysvarValue& value, std::wstring&) {
    const bool model = value.number != 0;
    if (model == store.modelTabCurrent()) return true;
    store.setHeaderValue("$TILEMODE", 70, model ? "1" : "0");
    store.currentViewport = model ? kModelViewport : kPaperViewport;
    return true;
}

void readViewport(const DocumentState& document, SysvarValue& value) {
    value.number = storeOf(document).currentViewport;
}

bool writeViewport(Store& store, const SysvarValue& value, std::wstring& explanation) {
    const int viewport = static_cast<int>(value.number);
    if (viewport == kPaperViewport && store.modelTabCurrent()) {
        explanation = L"CVPORT 1 is the sheet of a layout; set TILEMODE to 0 first";
        return false;
    }
    store.currentViewport = viewport;
    return true;
}

void readCurrentLayer(const DocumentState& document, SysvarValue& value) {
    const Store& store = storeOf(document);
    value.text = store.decode(trimmed(store.headerValue("$CLAYER").value_or("0")));
}

bool writeCurrentLayer(Store& store, const SysvarValue& value, std::wstring& explanation) {
    const ObjectBody* layer = store.liveSymbol("LAYER", value.text);
    if (layer == nullptr) {
        explanation = L"there is no layer " + value.text;
        return false;
    }
    if (setCurrentLayer(store, *layer)) return true;
    explanation = L"the layer " + value.text + L" is frozen";
    return false;
}

void readTextSize(const DocumentState& document, SysvarValue& value) {
    constexpr double kUsual = 2.5;
    value.number = realOf(storeOf(document).headerValue("$TEXTSIZE").value_or(""), kUsual);
}

bool writeTextSize(Store& store, const SysvarValue& value, std::wstring&) {
    store.setHeaderValue("$TEXTSIZE", 40, formatReal(value.number));
    return true;
}

void readViewSize(const DocumentState& document, SysvarValue& value) {
    value.number = viewHeight(storeOf(document));
}

void readDrawingName(const DocumentState& document, SysvarValue& value) {
    const std::wstring& path = document.fileName;
    value.text = path.empty() ? L"Drawing.dxf" : path.substr(path.find_last_of(L"/\\") + 1);
}

void readCurrentTab(const DocumentState& document, SysvarValue& value) {
    const Store& store = storeOf(document);
    value.text = store.modelTabCurrent() ? L"Model" : layoutName(store, store.paperSpace());
}

}  // namespace host
