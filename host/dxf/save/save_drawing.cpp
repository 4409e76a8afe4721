// Saving a drawing: the steps that keep the old drawing or the new one whole at any moment.
#include "host/dxf/save/save_drawing.h"

#include <new>

#include "host/dxf/file/file_access.h"
#include "host/dxf/save/drawing_writer.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// A file that is removed unless it found its place under another name.
class TemporaryFile {
  public:
    ~TemporaryFile() { remove(); }

    /// A name in the folder of `target` that is not taken; short, so that it fits everywhere.
    void nameBeside(const std::string& target) {
        static unsigned long number = 0;
        do {
            m_path = folderPart(target) + ".dxf-" + std::to_string(processNumber()) + "-" +
                     std::to_string(++number) + ".tmp";
        } while (placeOf(m_path) == FilePlace::File);
    }
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
    const auto value = store.headerValue("$HANDSEED");
    const std::uint64_t written = value ? parseHandle(*value).value_or(0) : 0;
    if (written == store.handleSeed()) return;
    store.setHeaderValue("$HANDSEED", 5, formatHandle(store.handleSeed()));
}

bool writeFile(Store& store, const std::string& path, const std::string& former,
               const ProgressFunction& progress, std::string& why) {
    OutputFile file;
    if (!file.create(path, why)) return false;
    if (!former.empty() && !file.takePermissionsOf(former, why)) return false;
    return DrawingWriter(store, file, progress).write(why) && file.flushToDisk(why) &&
           file.close(why);
}

/// Keeps the former file under its backup name. The target's name stays in place meanwhile.
bool keepFormer(const std::string& target, std::string& why) {
    TemporaryFile second;
    second.nameBeside(target);
    return duplicateFile(target, second.path(), why) && second.moveTo(backupPath(target), why);
}

bool replaceTarget(Store& store, const std::string& target, const ProgressFunction& progress,
                   FormerFile former, std::string& why) {
    const FilePlace place = placeOf(target);
    const bool exists = place == FilePlace::File;
    if (place == FilePlace::Folder) why = "Is a directory";
    if (place == FilePlace::Other) why = "Is not a regular file";
    if (exists && !isWritable(target)) why = "Is write-protected";
    if (!why.empty()) return false;
    TemporaryFile temporary;
    temporary.nameBeside(target);
    if (!writeFile(store, temporary.path(), exists ? target : "", progress, why)) return false;
    const bool keeps = exists && former == FormerFile::KeptAsBackup;
    if (keeps && !keepFormer(target, why)) return false;
    return temporary.moveTo(target, why);
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

bool saveDrawing(Store& store, const std::string& path, DxfError& error,
                 const ProgressFunction& progress, FormerFile former) {
    error = {path, 0, {}};
    try {
        updateHandleSeed(store);
        const std::string target = withoutLinks(path);
        std::string why;
        if (!replaceTarget(store, target, progress, former, why)) {
            error.text = "cannot be written: " + why + "; nothing was changed, save elsewhere";
            return false;
        }
        // The new drawing is in place; only a power cut right now could still bring the old one.
        flushFolderOf(target, why);
        return true;
    } catch (const std::bad_alloc&) {
        error.text = "cannot be written: out of memory; nothing was changed, close other programs";
        return false;
    }
}

}  // namespace host
