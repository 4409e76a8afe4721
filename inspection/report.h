// The list of groups as text and as JSON.
#pragma once

#include <string>
#include <vector>

#include "inspection/inspection.h"

namespace inspection {

/// One line for each group and stray and one with the totals, each behind `head`; all end in \n.
std::string listText(const std::string& head, const Inspection& inspection);

/// One drawing as an object of JSON.
std::string listJson(const std::string& file, const Inspection& inspection);

/// What a save did to groups, one line each without line end: those that `before` has and `after`
/// has no more, or with a smaller count.
std::vector<std::string> changes(const Inspection& before, const Inspection& after);

}  // namespace inspection
