// Whole numbers as decimal text.
#pragma once

#include <string>

/// The number as "-12" or "345". The one place that calls std::to_wstring, which the platform's
/// compiler has for the longest types only.
inline std::wstring decimalText(long long number) { return std::to_wstring(number); }
