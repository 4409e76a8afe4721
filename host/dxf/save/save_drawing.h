// Saving a drawing as an ASCII DXF file.
#pragma once

#include <string>

#include "host/dxf/file/dxf_error.h"
#include "host/dxf/file/progress.h"
#include "host/store/store.h"

namespace host {

/// What becomes of the file that a save replaces.
enum class FormerFile { KeptAsBackup, Replaced };

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
/// existing target stay, a symbolic link is followed. A kill while writing can leave a file
/// ".dxf-<number>.tmp" behind.
bool saveDrawing(Store& store, const std::string& path, DxfError& error,
                 const ProgressFunction& progress = {},
                 FormerFile former = FormerFile::KeptAsBackup);

/// Path under which a save to `path` keeps the former file.
std::string backupPath(const std::string& path);

}  // namespace host
