// Saving a drawing: the steps that keep the old drawing or the new one whole at any moment.
#include "host/dxf/save/save_drawing.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <new>

#include "host/dxf/save/drawing_writer.h"
#include "host/tags/tags.h"
#include "host/text/numbers.h"
#include "host/text/paths.h"

namespace host {
namespace {

constexpr std::string_view kTemporaryHead = ".dxf-", kTemporaryTail = ".tmp";

/// The process that has made a temporary file; 0 for a file of another kind.
unsigned long makerOf(const std::string& name) {
    if (name.rfind(kTemporaryHead, 0) != 0 || name.size() < kTemporaryTail.size()) return 0;
    if (name.substr(name.size() - kTemporaryTail.size()) != kTemporaryTail) return 0;
    return std::strtoul(name.c_str() + kTemporaryHead.size(), nullptr, 10);
}

/// Removes what processes that are gone have left in the folder of `target`.
void removeLeftovers(const std::string& target) {
    const std::string folder = folderPart(target);
    std::error_code failure;
    std::filesystem::directory_iterator at(pathFromUtf8(folder.empty() ? "." : folder), failure);
    for (; !failure && at != std::filesystem::directory_iterator(); at.increment(failure)) {
        const unsigned long maker = makerOf(utf8OfPath(at->path().filename()));
        if (maker != 0 && !processLives(maker)) removeFile(utf8OfPath(at->path()));
    }
}

/// A file that is removed unless it found its place under another name.
class TemporaryFile {
  public:
    ~TemporaryFile() { remove(); }

    explicit TemporaryFile(const std::string& target) : m_path(temporaryBeside(target)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const std::string& path() const { return m_path; }
    bool moveTo(const std::string& target, std::string& why) {
        if (!renameOver(m_path, target, why)) return false;
        // Two names of one file: then renaming does nothing, and this name has to go.
        remove();
        return true;
    }

  private:
    void remove() {
        if (!m_path.empty()) removeFile(m_path);
        m_path.clear();
    }

    std::string m_path;
};

/// Makes $HANDSEED name the next free handle.
void updateHandleSeed(Store& store) {
    // Above the highest handle that there may be only while an object has that one.
    const ObjectBody* const last = store.byHandle(kHighestHandle);
    const bool taken = last != nullptr && !last->erased;
    const std::uint64_t seed =
        taken ? store.handleSeed() : std::min(store.handleSeed(), kHighestHandle);
    const auto value = store.headerValue("$HANDSEED");
    const std::uint64_t written = value ? parseHandle(*value).value_or(0) : 0;
    if (written != seed) store.setHeaderValue("$HANDSEED", 5, formatHandle(seed));
}

/// Why a drawing was not written, and what to do about it.
struct Problem {
    std::string why;
    const char* advice = "save elsewhere";
};

/// Fills a new file that takes the permissions of the one at `target`, if any.
bool fillNew(const std::string& path, const std::string& target, const FillFile& fill,
             std::string& why) {
    OutputFile file;
    return file.create(path, why) &&
           (placeOf(target) != FilePlace::File || file.takePermissionsOf(target, why)) &&
           fill(file, why) && file.flushToDisk(why) && file.close(why);
}

/// Keeps the former file under its backup name. The target's name stays in place meanwhile.
bool keepFormer(const std::string& target, std::string& why) {
    TemporaryFile second(target);
    return duplicateFile(target, second.path(), why) && second.moveTo(backupPath(target), why);
}

/// Why nothing may come to stand at a path; empty when it may.
std::string refusal(const std::string& target) {
    const FilePlace place = placeOf(target);
    if (place == FilePlace::Folder) return "Is a directory";
    if (place == FilePlace::Other) return "Is not a regular file";
    return place == FilePlace::File && !isWritable(target) ? "Is write-protected" : "";
}

bool replaceTarget(Store& store, const std::string& target, const SaveOptions& options,
                   Problem& problem) {
    problem.why = refusal(target);
    if (!problem.why.empty()) return false;
    removeLeftovers(target);
    const auto write = [&](OutputFile& file, std::string& why) {
        DrawingWriter writer(store, file, options.progress);
        const bool written = writer.write(why);
        if (writer.refusedValue()) problem.advice = "shorten it";
        return written;
    };
    TemporaryFile temporary(target);
    if (!fillNew(temporary.path(), target, write, problem.why)) return false;
    if (!options.staged.empty()) return temporary.moveTo(options.staged, problem.why);
    const bool keeps =
        placeOf(target) == FilePlace::File && options.former == FormerFile::KeptAsBackup;
    if (keeps && !keepFormer(target, problem.why)) return false;
    return temporary.moveTo(target, problem.why);
}

void tell(const Problem& problem, DxfError& error) {
    error.text = "cannot be written: " + problem.why + "; nothing was changed, " + problem.advice;
}

}  // namespace

std::string backupPath(const std::string& path) {
    const std::size_t folder = folderPart(path).size();
    const std::size_t dot = path.rfind('.');
    const bool hasExtension = dot != std::string::npos && dot > folder;
    if (!hasExtension) return path + ".bak";
    std::string extension = path.substr(dot);
    for (char& c : extension) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return (extension == ".bak" ? path : path.substr(0, dot)) + ".bak";
}

bool replaceFile(const std::string& target, const FillFile& fill, std::string& why) {
    TemporaryFile temporary(target);
    return fillNew(temporary.path(), target, fill, why) && temporary.moveTo(target, why);
}

std::string temporaryBeside(const std::string& path) {
    static unsigned long number = 0;
    std::string name;
    do {
        name = folderPart(path) + std::string(kTemporaryHead) + std::to_string(processNumber()) +
               "-" + std::to_string(++number) + std::string(kTemporaryTail);
    } while (placeOf(name) == FilePlace::File);
    return name;
}

bool takeStaged(const std::string& staged, const std::string& path, DxfError& error) {
    error = {path, 0, {}};
    const std::string target = withoutLinks(path);
    Problem problem{refusal(target)};
    const auto taken = [&] {
        if (!problem.why.empty()) return false;
        const bool exists = placeOf(target) == FilePlace::File;
        return (!exists || keepFormer(target, problem.why)) &&
               renameOver(staged, target, problem.why);
    };
    if (taken()) return flushFolderOf(target, problem.why), true;
    tell(problem, error);
    return false;
}

bool saveDrawing(Store& store, const std::string& path, DxfError& error,
                 const SaveOptions& options) {
    error = {path, 0, {}};
    try {
        updateHandleSeed(store);
        const std::string target = withoutLinks(path);
        Problem problem;
        if (!replaceTarget(store, target, options, problem)) {
            tell(problem, error);
            return false;
        }
        // The new drawing is in place; only a power cut right now could still bring the old one.
        flushFolderOf(target, problem.why);
        return true;
    } catch (const std::bad_alloc&) {
        error.text = "cannot be written: out of memory; nothing was changed, close other programs";
        return false;
    }
}

}  // namespace host
