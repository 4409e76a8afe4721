// A drawing made entity by entity, and what its picture shows.
#pragma once

#include <regex>
#include <string>

#include "editor/editor_fixture.h"
#include "inspection/inspection.h"
#include "picture/svg/picture.h"

namespace tests {

class PictureTest : public EditorTest {
  protected:
    std::string draw(const picture::Choice& choice = {}) const {
        return picture::draw(store, store.modelSpace(), "a.dxf", "Model", inspection, choice);
    }
    /// What stands in the first group of all matches, parted by bars.
    static std::string all(const std::string& svg, const std::string& pattern) {
        const std::regex form(pattern);
        std::string found;
        for (std::sregex_iterator at(svg.begin(), svg.end(), form), end; at != end; ++at)
            found += (found.empty() ? "" : "|") + (*at)[1].str();
        return found;
    }
    /// The words of an entity with these tags, line by line, in an empty drawing.
    std::string words(const std::string& tags) {
        const AcDbObjectId id = add(tags);
        const std::string svg = draw();
        erase(id);
        return all(svg, "<text(?! class=\"(?:head|small|note))[^>]*>([^<]*)</text>");
    }
    /// Finds the entities to be a group.
    void group(std::initializer_list<AcDbObjectId> members, inspection::State verdict,
               const std::string& reason = "") {
        inspection::Group& made = inspection.groups.emplace_back();
        made.space = "Model";
        for (const AcDbObjectId id : members)
            made.members.push_back({id, "", "LINE", "0"});
        made.state = verdict;
        made.reason = reason;
    }

    inspection::Inspection inspection;
};

}  // namespace tests
