// The slice of Windows' network management that the module calls: workstation statistics.
#pragma once

#include "windows.h"

using NET_API_STATUS = DWORD;
#define NERR_Success 0
#define NERR_ServiceNotInstalled 2184

/// Statistics of the workstation service, as far as the module reads them.
struct STAT_WORKSTATION_0 {
    LARGE_INTEGER StatisticsStartTime;  ///< 100-nanosecond steps since 1601, UTC. Assumed.
};

extern "C" {

/// Statistics of a service; the caller frees them with NetApiBufferFree. NERR_ServiceNotInstalled
/// for another service than the workstation's or when that has no start time. Documented.
NET_API_STATUS WINAPI NetStatisticsGet(LPWSTR server, LPWSTR service, DWORD level, DWORD options,
                                       LPBYTE* buffer);
NET_API_STATUS WINAPI NetApiBufferFree(LPVOID buffer);

}  // extern "C"
