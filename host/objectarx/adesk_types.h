// Basic types of the ObjectARX interface: characters, integers, names and points.
#pragma once

#include <cstddef>
#include <cstdint>

/// Wide character of the interface: UTF-16 on Windows, UTF-32 in the native build.
using ACHAR = wchar_t;

/// Expands a literal to the interface's character type.
#define ACRX_T(text) L##text

/// Fixed-size integers of the interface.
namespace Adesk {
using Int8 = std::int8_t;
using Int16 = std::int16_t;
using Int32 = std::int32_t;
using Int64 = std::int64_t;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UInt64 = std::uint64_t;
using IntPtr = std::intptr_t;
using Boolean = bool;
constexpr Boolean kTrue = true;
constexpr Boolean kFalse = false;
}  // namespace Adesk

/// One coordinate of an ads_point.
using ads_real = double;
/// Point as three doubles, in drawing units.
using ads_point = ads_real[3];
/// Entity or selection-set name: two words; {0, 0} is the empty name. Volatile: valid only in the
/// session, and for a selection set only in the drawing, that made it. Documented.
using ads_name = Adesk::IntPtr[2];

/// Copies a name (the destination comes second). Assumed.
inline void ads_name_set(const ads_name from, ads_name to) {
    to[0] = from[0];
    to[1] = from[1];
}

/// Sets both words of a name to zero. Assumed.
inline void ads_name_clear(ads_name name) { name[0] = name[1] = 0; }
