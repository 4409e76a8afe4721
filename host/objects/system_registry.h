// Registration of the services that acrxSysRegistry gives out.
#pragma once

class AcRxObject;

namespace host {

/// Puts a service under a key (the object stays the caller's), replacing what stood there; null
/// removes it. Tests use it to take a service away or to put one of the wrong class there.
void registerService(const wchar_t* key, AcRxObject* service);

}  // namespace host
