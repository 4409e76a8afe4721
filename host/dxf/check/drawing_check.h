// The check of a drawing: what AUDIT and --check report.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/dxf/file/dxf_error.h"
#include "host/dxf/load/finding.h"
#include "host/store/store.h"

namespace host {

/// Checks a drawing as it would be saved and changes nothing; in the order of the objects.
///
/// Handles: not zero, unique, below $HANDSEED (objects made since the loading apart; a save raises
/// it). Owners (330): resolve to the object that the place demands; absent ones are one note.
/// BLOCK and BLOCK_RECORD in pairs of one name. Spaces with layouts that point back; a drawing
/// without any layout is a note. Extension dictionaries: exist, are owned by their object; entries
/// of dictionaries resolve and point back (a note outside extension dictionaries). Pointers: not
/// empty, hexadecimal, not dangling (an error for owners and hard pointers, a note for soft
/// pointers, plot styles and extended data). Names of layers, linetypes, styles, blocks and APPIDs
/// defined. 66 only with ATTRIB ... SEQEND, and SEQEND owned by what it ends. Subclass markers in
/// order. No value that is no number where one belongs (NaN and infinity are none), no NUL.
std::vector<Finding> checkDrawing(const Store& store);

/// Loads a file and checks it; what loading had to supply is reported first, as errors. Nothing,
/// with `error` filled, when it cannot be loaded.
std::optional<std::vector<Finding>> checkFile(const std::string& path, DxfError& error);

}  // namespace host
