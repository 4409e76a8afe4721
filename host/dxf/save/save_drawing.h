// Saving a drawing as an ASCII DXF file.
#pragma once

#include <functional>
#include <string>

#include "host/dxf/file/dxf_error.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/file/progress.h"
#include "host/store/store.h"

namespace host {

/// What becomes of the file that a save replaces.
enum class FormerFile { KeptAsBackup, Replaced };

struct SaveOptions {
    ProgressFunction progress = {};
    FormerFile former = FormerFile::KeptAsBackup;
    /// When it is not empty: the drawing is only made ready for its place under this name, in the
    /// folder of the target; takeStaged() puts it there.
    std::string staged = {};
};

/// Writes the drawing in the version, encoding and line ending it was loaded with; false, with one
/// clear line in `error` and the target untouched, when that fails.
///
/// The order of the file is kept; new objects stand behind the others. Erased objects are left out
/// with what they own, and pointers at them are dropped or become 0 (see erased_references.h). The
/// drawing itself is not changed but for $HANDSEED, which is raised to the next free handle.
///
/// A temporary file beside the target is written, flushed to the disk and renamed, so that under
/// the target's name the old drawing or the new one stands whole at any moment. Unless it is just
/// `Replaced`, the former file is kept as NAME.bak: "plan.dxf" as "plan.bak", replacing an older
/// one (a target that ends in ".bak" itself gets a second ".bak" behind it). Permissions of an
/// existing target stay, and its extended attributes where there are any; a symbolic link is
/// followed. Other names of the target (hard links) keep the former content. A kill while writing
/// can leave a file ".dxf-<process>-<number>.tmp" behind: the next save into the folder removes
/// those whose process is gone.
///
/// A value longer than kLongestValue bytes is refused, since no reader would take it.
bool saveDrawing(Store& store, const std::string& path, DxfError& error,
                 const SaveOptions& options = {});

/// Puts a drawing that was saved as `staged` to its place, keeping the former file as a backup;
/// false, with the error and the target untouched, when that fails.
bool takeStaged(const std::string& staged, const std::string& path, DxfError& error);

/// Puts a file of any kind to a place that is no link as a save does: filled and flushed beside it,
/// with the permissions of a former one, then renamed over that. False, with the reason and the
/// former file untouched, when that or `fill` fails.
using FillFile = std::function<bool(OutputFile& file, std::string& why)>;
bool replaceFile(const std::string& target, const FillFile& fill, std::string& why);

/// A name in the folder of `path` that is not taken; short, so that it fits everywhere.
std::string temporaryBeside(const std::string& path);

/// Path under which a save to `path` keeps the former file.
std::string backupPath(const std::string& path);

}  // namespace host
