// JSON that the program writes by itself.
#pragma once

#include <string>
#include <vector>

#include "host/dxf/load/finding.h"

/// One drawing whose work came to nothing, as an element of a list.
std::string errorJson(const std::string& file, const std::string& why);
/// One checked drawing; it is sound when none of the findings is an error.
std::string checkJson(const std::string& file, const std::vector<host::Finding>& findings,
                      bool sound);
