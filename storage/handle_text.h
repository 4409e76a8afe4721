// Handles as text: the form in which group objects refer to each other.
#pragma once

#include <string>

#include "platform.h"

/// Upper-case hexadecimal handle of an object of the working drawing; empty when the object cannot
/// be opened.
std::wstring handleText(const AcDbObjectId& id);

/// The object with that handle in the working drawing, erased or not; the null id for an empty text
/// or an unknown handle. With any other answer of the host the id is what it gave.
AcDbObjectId idFromHandleText(const std::wstring& text);
