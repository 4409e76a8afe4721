// The system variables that live in a drawing.
#pragma once

#include <string>

#include "host/editor/state/document_state.h"

namespace host {

class Store;

/// Types of system variables.
enum class SysvarKind { Short, Real, Text };

struct SysvarValue {
    SysvarKind kind = SysvarKind::Short;
    double number = 0;  ///< unless it is text
    std::wstring text;
};

// Readers fill number or text; the document has a drawing. Writers get a value of the right kind
// and in range; they answer false with one line of explanation when the drawing does not allow it.

void readTileMode(const DocumentState& document, SysvarValue& value);
/// Layouts start in paper space (viewport 1), the Model tab in its viewport.
bool writeTileMode(Store& store, const SysvarValue& value, std::wstring& explanation);
void readViewport(const DocumentState& document, SysvarValue& value);
bool writeViewport(Store& store, const SysvarValue& value, std::wstring& explanation);
void readCurrentLayer(const DocumentState& document, SysvarValue& value);
bool writeCurrentLayer(Store& store, const SysvarValue& value, std::wstring& explanation);
void readTextSize(const DocumentState& document, SysvarValue& value);
bool writeTextSize(Store& store, const SysvarValue& value, std::wstring& explanation);
void readViewSize(const DocumentState& document, SysvarValue& value);
/// Name of the file without its folder.
void readDrawingName(const DocumentState& document, SysvarValue& value);
/// Name of the current layout.
void readCurrentTab(const DocumentState& document, SysvarValue& value);

}  // namespace host
