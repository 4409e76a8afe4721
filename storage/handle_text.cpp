// Converts between objects and their handle texts.
#include "handle_text.h"

#include "diagnostics.h"
#include "host_guards.h"

namespace {

constexpr wchar_t DIAG_SOURCE[] = L"HandleText";
constexpr int kHandleBufferLength = 17;

}  // namespace

std::wstring handleText(const AcDbObjectId& id) {
    Opened<AcDbObject> object;
    const bool opened =
        DIAG_CHECK(acdbOpenObject(object.receive(), id, AcDb::kForRead) == Acad::eOk);
    if (!opened) return {};
    AcDbHandle handle;
    object->getAcDbHandle(handle);
    ACHAR text[kHandleBufferLength] = {};
    handle.getIntoAsciiBuffer(text);
    return text;
}

AcDbObjectId idFromHandleText(const std::wstring& text) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (text.empty() || database == nullptr) return {};
    AcDbObjectId id;
    const Acad::ErrorStatus status = database->getAcDbObjectId(id, false, AcDbHandle(text.c_str()));
    return status == Acad::eOk ? id : AcDbObjectId();
}
