// Converts between objects and their handle texts.
#include "handle_text.h"

#include "diagnostics.h"
#include "host_guards.h"
#include "host_services.h"
#include "object_ids.h"

namespace {

const CheckSource DIAG_SOURCE = L"HandleText";

}  // namespace

std::wstring handleText(const AcDbObjectId& id) {
    Opened<AcDbObject> object;
    if (!DIAG_CHECK(acdbOpenObject(object.receive(), id, AcDb::kForRead) == Acad::eOk)) {
        return std::wstring();
    }
    AcDbHandle handle;
    object->getAcDbHandle(handle);
    ACHAR text[kHandleBufferLength] = {};
    handle.getIntoAsciiBuffer(text);
    return text;
}

AcDbObjectId idFromHandleText(const std::wstring& text) {
    AcDbDatabase* database = workingDatabase();
    if (text.empty() || database == nullptr) return AcDbObjectId();
    AcDbObjectId id;
    const Acad::ErrorStatus status = database->getAcDbObjectId(id, false, AcDbHandle(text.c_str()));
    return status == Acad::eUnknownHandle ? AcDbObjectId() : id;
}
