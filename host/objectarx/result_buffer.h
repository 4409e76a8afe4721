// Result buffers: the typed lists of the ADS interface, their type codes and builders.
#pragma once

#include "adesk_types.h"

/// Result codes of ADS calls. None of them is zero. RTNORM, RTERROR and RSRSLT are documented.
constexpr int RTNORM = 5100;
constexpr int RTERROR = -5001;
constexpr int RTCAN = -5002;
constexpr int RTREJ = -5003;
constexpr int RSRSLT = 1;

/// Type codes of result buffers. Documented.
constexpr int RTNONE = 5000;
constexpr int RTREAL = 5001;
constexpr int RTPOINT = 5002;
constexpr int RTSHORT = 5003;
constexpr int RTANG = 5004;
constexpr int RTSTR = 5005;
constexpr int RTENAME = 5006;
constexpr int RTPICKS = 5007;
constexpr int RTORINT = 5008;
constexpr int RT3DPOINT = 5009;
constexpr int RTLONG = 5010;
constexpr int RTVOID = 5014;
constexpr int RTLB = 5016;
constexpr int RTLE = 5017;
constexpr int RTDOTE = 5018;
constexpr int RTNIL = 5019;
constexpr int RTDXF0 = 5020;
constexpr int RTT = 5021;

/// Binary chunk; `buf` is owned by the result buffer that holds it.
struct ads_binary {
    short clen;
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    Adesk::IntPtr rlname[2];
    Adesk::Int32 rlong;
    Adesk::Int64 mnInt64;
    ads_binary rbinary;
};

/// One element of a list. Documented layout.
struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};

/// Builds a list from (type, value) pairs, ended by 0 or RTNONE; a literal 0 ends the list, so
/// tag code 0 is passed as RTDXF0 and arrives as type 0. Value by code: text for 0-9, 100,
/// 102, 105, 300-309 and 1000-1009, ads_point for 10-37, 110-119, 210-239 and RTPOINT, double for
/// 38-59, 140-149, 1040-1042 and RTREAL, int for 60-79, 170-179, 270-289, 370-389 and RTSHORT,
/// Int32 for 90-99 and RTLONG, ads_name for 320-369, RTENAME and RTPICKS. Strings are copied.
/// Null when nothing but the terminator is given or a type is wrong. The caller owns the list
/// (acutRelRb). Documented.
resbuf* acutBuildList(int type, ...);
/// Frees `list`, every buffer behind it and their strings; RTNORM. Null is harmless (chosen). A
/// list that belongs to the host (acedGetArgs) is left alone. Documented. A list that
/// is not the host's, or was released before, is a fault of the caller and gives RTERROR (chosen);
/// a string that the caller put into a buffer itself stays the caller's (chosen).
int acutRelRb(resbuf* list);
