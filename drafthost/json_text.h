// JSON that the program writes by itself.
#pragma once

#include <string>
#include <vector>

#include "host/dxf/load/finding.h"
#include "inspection/inspection.h"

/// One drawing whose work came to nothing, as an element of a list.
std::string errorJson(const std::string& file, const std::string& why);
/// The groups of one drawing.
std::string groupsJson(const std::string& file, const inspection::Inspection& found);
/// One checked drawing; it is sound when none of the findings is an error.
std::string checkJson(const std::string& file, const std::vector<host::Finding>& findings,
                      bool sound);
