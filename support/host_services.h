// Where the module finds what the host offers: its services and the working drawing.
#pragma once

#include "platform.h"

/// The service under `key` in the host's system registry, or null when there is none of the
/// expected class. It stays the host's; look it up afresh at each use.
template <typename T>
T* hostService(const ACHAR* key) {
    AcRxObject* service = acrxSysRegistry()->at(key);
    const bool expected = service != nullptr && service->isA()->isDerivedFrom(T::desc());
    return expected ? static_cast<T*>(service) : nullptr;
}

/// The drawing that all storage operations work on; null when no drawing is open.
inline AcDbDatabase* workingDatabase() { return acdbHostApplicationServices()->workingDatabase(); }
