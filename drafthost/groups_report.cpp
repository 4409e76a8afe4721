// Lists and draws the groups of drawings without a session.
#include "drafthost/groups_report.h"

#include <memory>

#include "drafthost/batch.h"
#include "drafthost/drawing_inspection.h"
#include "drafthost/json_text.h"
#include "drafthost/output.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/load/load_drawing.h"
#include "host/editor/state/current_drawing.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"
#include "inspection/report.h"
#include "picture/picture.h"

namespace {

using host::Index;
using host::kNoIndex;
using host::Store;

/// Loads a drawing; null, with a line printed, when it cannot be read.
std::unique_ptr<AcDbDatabase> load(const std::string& file, host::DxfError& error) {
    auto store = host::loadDrawing(file, error, [&](double done) {
        return showProgress(("Loading " + file).c_str(), static_cast<int>(done * 100.0));
    });
    if (store != nullptr) return std::make_unique<AcDbDatabase>(std::move(store));
    complain(error.message());
    return nullptr;
}

int listOne(const Options& options, const std::string& file) {
    host::DxfError error;
    const std::unique_ptr<AcDbDatabase> drawing = load(file, error);
    if (drawing == nullptr) {
        if (options.json) writeOutput(errorJson(file, error.message()));
        return kUnreadable;
    }
    std::string frames;
    const inspection::Inspection found = inspectDrawing(*drawing, true, &frames);
    if (!frames.empty()) complain(file + ": " + frames);
    if (!found.good() || !options.quiet) {
        writeOutput(options.json ? groupsJson(file, found)
                                 : inspection::listText(file + ": ", found));
    }
    return found.good() ? kDone : kDamaged;
}

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

bool writeFile(const std::string& path, const std::string& text, std::string& why) {
    const std::string fresh = path + "." + std::to_string(host::processNumber()) + ".tmp";
    host::OutputFile file;
    if (!file.create(fresh, why)) return false;
    if (file.write(text, why) && file.close(why) && host::renameOver(fresh, path, why)) return true;
    host::removeFile(fresh);
    return false;
}

}  // namespace

int listGroups(const Options& options) {
    return runBatch(options, [&](const std::string& file) { return listOne(options, file); });
}

int drawFile(const Options& options) {
    host::DxfError error;
    const std::unique_ptr<AcDbDatabase> drawing = load(options.files.front(), error);
    if (drawing == nullptr) return kUnreadable;
    const Store& store = drawing->store();
    const Index space = layoutSpace(store, options.layout);
    if (space == kNoIndex) {
        complain(options.files.front() + ": no layout is called \"" + options.layout +
                 "\"; there are " + layoutNames(store));
        return kUsage;
    }
    const std::string why =
        writePicture(*drawing, space, fileName(options.files.front()), options.picture);
    if (!why.empty()) complain(why);
    return why.empty() ? kDone : kUnwritable;
}

std::string writePicture(AcDbDatabase& drawing, unsigned space, const std::string& title,
                         const std::string& path) {
    const Store& store = drawing.store();
    std::string why;
    const std::string svg =
        picture::draw(store, space, title, spaceName(store, space), inspectDrawing(drawing, false));
    if (writeFile(path, svg, why)) return {};
    return path + ": the picture cannot be written: " + why;
}
