// From the lengths in a line type's record to dashes and gaps in turns.
#include "picture/linetypes.h"

#include <cmath>

#include "host/picking/outline.h"

namespace picture {
namespace {

/// Lengths one after the other, gaps below 0, as the pattern goes round.
Dashes inTurns(const std::vector<double>& lengths) {
    Dashes dashes;
    for (const double length : lengths) {
        const bool isGap = length < 0;
        if (isGap == (dashes.size() % 2 != 0))
            dashes.push_back(std::fabs(length));
        else if (!dashes.empty())
            dashes.back() += std::fabs(length);
        else
            dashes = {0, -length};  // one that begins with a gap gets a dot
    }
    if (dashes.size() % 2 == 0 || dashes.size() < 2) return dashes.size() < 2 ? Dashes() : dashes;
    // The last dash goes on in the first one.
    dashes.front() += dashes.back();
    dashes.pop_back();
    return dashes;
}

}  // namespace

Dashes patternOf(const host::Store& store, std::string_view linetype) {
    const host::ObjectBody* record = store.symbol("LTYPE", store.decode(linetype));
    if (record == nullptr) return {};
    return inTurns(host::realsOf(host::OwnTags(record->tags()), 49));
}

double linetypeScale(const host::Store& store) {
    const auto value = store.headerValue("$LTSCALE");
    const double scale = value ? host::realOf(*value, 1) : 1;
    return scale > 0 ? scale : 1;
}

}  // namespace picture
