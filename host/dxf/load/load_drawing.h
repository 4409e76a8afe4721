// Loading a drawing from an ASCII DXF file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/dxf/file/dxf_error.h"
#include "host/dxf/file/progress.h"
#include "host/dxf/load/finding.h"
#include "host/store/store.h"

namespace host {

/// Reads a drawing of the versions AC1015 to AC1032. Null, with one clear line in `error`, when the
/// file cannot be read or is no sound drawing of these versions; the file is never touched.
///
/// Everything in the file is kept, in order, but for comments (999), padding of tag codes, blanks
/// around object type names, a byte-order mark and whatever stands behind EOF. Tags between two
/// sections, which some writers leave there, become a raw section without a name. Objects without a
/// handle get one, and structure that the database needs and the file lacks is supplied (see
/// structure_repair.h); `supplied`, when given, receives one finding for each. Time grows with the
/// size of the file; memory is the text once, the slots of its objects, and a few megabytes.
std::unique_ptr<Store> loadDrawing(const std::string& path, DxfError& error,
                                   const ProgressFunction& progress = {},
                                   std::vector<Finding>* supplied = nullptr);

/// The drawing that NEW gives, of new_drawing.dxf: everything that a valid AC1027 drawing must
/// hold, metric. Never null.
std::unique_ptr<Store> newDrawing();

}  // namespace host
