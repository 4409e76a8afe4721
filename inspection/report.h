// The list of groups as text.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "inspection/inspection.h"

namespace inspection {

/// How many of a group's members have which type, layer and so on.
using Census = std::map<std::string, int>;
Census census(const Group& group, std::string Entity::*property);

/// One line for each group and stray and one with the totals, each behind `head`; all end in \n.
std::string listText(const std::string& head, const Inspection& inspection);

/// What a save did to groups, one line each without line end: those that `before` has and `after`
/// has no more, or with a smaller count.
std::vector<std::string> changes(const Inspection& before, const Inspection& after);

}  // namespace inspection
