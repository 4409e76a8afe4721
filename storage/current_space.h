// The space that receives new markers and re-cloned members.
#pragma once

#include <string>

#include "platform.h"

/// "*Model_Space" or "*Paper_Space": the space that the user works in. A viewport of model space
/// inside a layout counts as model space.
std::wstring currentSpaceName();

/// Id of the current space's block table record, or the null id.
AcDbObjectId currentSpaceId();
