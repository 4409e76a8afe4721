// Which tags of an object refer to other objects, by handle or by name.
#pragma once

#include <string_view>

#include "host/store/object_body.h"

namespace host {

/// Codes whose values are handles of other objects. Handles kept as text are none of them.
inline bool isReferenceCode(int code) {
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 ||
           code == 481 || code == 1005;
}
/// Codes of owned objects, softly or hard.
inline bool isOwnerCode(int code) { return code >= 350 && code <= 369; }
/// References that keep their object with theirs when drawings are divided.
inline bool isHardOwnerCode(int code) { return code >= 360 && code <= 369; }
inline bool isHardPointerCode(int code) {
    return (code >= 340 && code <= 349) || (code >= 390 && code <= 399) || code == 480 ||
           code == 481;
}
/// Table whose record a tag of an object names, or null when it names none.
const char* tableNamedBy(const ObjectBody& body, int code);

}  // namespace host
