// Old-style polylines: access to the sequence end.
#include "host/control/faults.h"
#include "host/entities/field_setters.h"

Acad::ErrorStatus AcDb2dPolyline::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode) {
    end = nullptr;
    if (host::callFails("AcDb2dPolyline::openSequenceEnd")) return Acad::eWasOpenForWrite;
    return host::openEnd(*this, end, mode);
}
