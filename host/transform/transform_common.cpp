// What is done to the tags of every type: extended data, the stored picture, further tags.
#include "host/tags/tags.h"
#include "host/transform/transform_tags.h"

namespace host {

void addToPart(TagEdit& edit, std::string_view subclass, const std::string& tags) {
    std::size_t last = edit.size(), inPart = edit.size();
    std::string_view part;
    for (std::size_t at = 0; at < edit.size(); ++at) {
        if (edit.code(at) == 100) {
            // A name that comes twice counts the first time: TEXT has two parts of one name.
            if (inPart != edit.size() && part == subclass) break;
            part = trimmed(edit.value(at));
        }
        if (!edit.own(at) && edit.code(at) != 100) continue;
        last = at;
        if (part == subclass) inPart = at;
    }
    const std::size_t place = inPart != edit.size() ? inPart : last;
    if (place != edit.size()) edit.addBehind(place, tags);
}

void dropGraphics(TagEdit& edit) {
    bool common = false;
    for (std::size_t at = 0; at < edit.size(); ++at) {
        const int code = edit.code(at);
        if (code == 100) common = trimmed(edit.value(at)) == "AcDbEntity";
        // The size of the picture, and its bytes.
        const bool picture = code == 92 || code == 160 || code == 310;
        if (common && edit.own(at) && picture) edit.remove(at);
    }
}

void transformExtendedData(TagEdit& edit, const RigidMap& map) {
    for (std::size_t at = 0; at < edit.size(); ++at) {
        const int code = edit.code(at);
        if (code == 1011) edit.setPoint(at, map.matrix.apply(edit.point(at)));
        if (code == 1012 || code == 1013) edit.setPoint(at, map.matrix.turn(edit.point(at)));
    }
}

}  // namespace host
