// Lists and draws the groups of drawings without a session.
#include "drafthost/groups_report.h"

#include <algorithm>

#include "drafthost/batch.h"
#include "drafthost/drawing_inspection.h"
#include "drafthost/json_text.h"
#include "drafthost/output.h"
#include "drafthost/output_folder.h"
#include "drafthost/picture_file.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/load/load_drawing.h"
#include "host/editor/state/current_drawing.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"
#include "inspection/report.h"
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

int drawOne(const Options& options, const OutputFolder& folder, const std::string& file) {
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

}  // namespace

std::unique_ptr<AcDbDatabase> loadForReading(const Options& options, const std::string& file) {
    host::DxfError error;
    auto store = host::loadDrawing(
        file, error, [&](double done) { return showProgress("Loading " + file, done); });
    if (store != nullptr) return std::make_unique<AcDbDatabase>(std::move(store));
    complain(error.message());
    if (options.json) writeOutput(errorJson(options, file, error.message()));
    return nullptr;
}

int listGroups(const Options& options, const std::string& file) {
    const std::unique_ptr<AcDbDatabase> drawing = loadForReading(options, file);
    if (drawing == nullptr) return kUnreadable;
    std::string frames;
    const inspection::Inspection found = inspectDrawing(*drawing, true, &frames);
    if (!frames.empty()) complain(file + ": " + frames);
    if (!found.good() || !options.quiet) {
        const auto listed = options.quiet ? inspection::Listed::Faults : inspection::Listed::All;
        writeOutput(options.json ? groupsJson(file, found)
                                 : inspection::listText(file + ": ", found, listed));
    }
    return found.good() ? kDone : kDamaged;
}

int drawFiles(const Options& options) {
    const OutputFolder folder(options);
    if (const int status = folder.prepare(); status != kDone) return status;
    return runBatch(options,
                    [&](const std::string& file) { return drawOne(options, folder, file); });
}

std::string pictureOf(AcDbDatabase& drawing, unsigned space, const std::string& path) {
    const Store& store = drawing.store();
    return picture::draw(store, space, fileName(path), spaceName(store, space),
                         inspectDrawing(drawing, false));
}
