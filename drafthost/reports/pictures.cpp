// Draws drawings and their groups without a session.
#include "drafthost/reports/pictures.h"

#include <algorithm>

#include "drafthost/files/picture_file.h"
#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/reports/reading.h"
#include "drafthost/system/output.h"
#include "host/dxf/file/file_access.h"
#include "host/editor/state/current_drawing.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"
#include "picture/svg/picture.h"

namespace {

using host::Index;
using host::kNoIndex;
using host::Store;

std::string fileName(const std::string& path) { return path.substr(host::folderPart(path).size()); }

/// The space of the layout with that name, without regard to case; model space for an empty one.
Index layoutSpace(const Store& store, const std::string& name) {
    if (name.empty()) return store.modelSpace();
    const std::wstring wanted = host::foldCase(host::fromUtf8(name));
    for (const Index space : spacesOf(store)) {
        if (host::foldCase(host::layoutName(store, space)) == wanted) return space;
    }
    return kNoIndex;
}

std::string layoutNames(const Store& store) {
    std::string names;
    for (const Index space : spacesOf(store))
        names += (names.empty() ? "" : ", ") + spaceName(store, space);
    return names;
}

picture::Choice choiceOf(const Options& options) {
    picture::Choice choice;
    choice.layers = host::fromUtf8(options.layerNames);
    choice.group = static_cast<std::size_t>(options.group);
    const std::vector<double>& corners = options.corners;
    if (!corners.empty())
        choice.window =
            host::Box{std::min(corners[0], corners[2]), std::min(corners[1], corners[3]),
                      std::max(corners[0], corners[2]), std::max(corners[1], corners[3])};
    return choice;
}

/// What is asked for and not there; empty when all is.
std::string missing(const Options& options, const Store& store, Index space,
                    const inspection::Inspection& found) {
    if (space == kNoIndex)
        return "no layout is called \"" + options.space + "\"; there are " + layoutNames(store);
    const std::string name = spaceName(store, space);
    const auto groups = std::count_if(found.groups.begin(), found.groups.end(),
                                      [&](const auto& group) { return group.space == name; });
    if (options.group <= groups) return {};
    return "no group has the number " + std::to_string(options.group) + "; " + name + " has " +
           std::to_string(groups);
}

}  // namespace

int drawFile(const Options& options, const OutputFolder& folder, const std::string& file) {
    const std::unique_ptr<AcDbDatabase> drawing = loadForReading(options, file);
    if (drawing == nullptr) return kUnreadable;
    const Store& store = drawing->store();
    const Index space = layoutSpace(store, options.space);
    const inspection::Inspection found = inspectDrawing(*drawing, false);
    if (const std::string what = missing(options, store, space, found); !what.empty()) {
        complain(file + ": " + what);
        return kUsage;
    }
    const std::string svg = picture::draw(store, space, fileName(file), spaceName(store, space),
                                          found, choiceOf(options));
    if (options.picture == "-") {
        writeOutput(svg);
        return kDone;
    }
    const std::string placed = folder.pathFor(file);
    const std::string& target = placed.empty() ? options.picture : placed;
    const std::string why = writePictureFile(target, svg, options.files);
    if (why.empty()) return kDone;
    complain(target + ": the picture cannot be written: " + why);
    return kUnwritable;
}

std::string pictureOf(AcDbDatabase& drawing, unsigned space, const std::string& path) {
    const Store& store = drawing.store();
    return picture::draw(store, space, fileName(path), spaceName(store, space),
                         inspectDrawing(drawing, false));
}
