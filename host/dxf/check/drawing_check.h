// The check of a drawing: what AUDIT and --check report.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/dxf/file/dxf_error.h"
#include "host/dxf/file/progress.h"
#include "host/dxf/load/finding.h"
#include "host/store/store.h"

namespace host {

/// Checks a drawing as it would be saved and changes nothing; in the order of the objects.
///
/// An error is what makes the real host refuse the drawing or lose content; a note is unusual, or
/// what that host mends by itself on loading (assumed).
///
/// Handles: not zero, unique, below $HANDSEED (objects made since the loading apart; a save raises
/// it). Owners (330): resolve to the object that the place demands; a note when absent, when a
/// sub-entity names the block of its entity, and for reactors of images. BLOCK and BLOCK_RECORD in
/// pairs of one name. Spaces with layouts that point back; a drawing without any layout is a note.
/// Extension dictionaries: exist, are owned by their object; entries of dictionaries resolve and
/// point back (a note outside extension dictionaries). Pointers: not empty, hexadecimal, not
/// dangling (an error for owners and hard pointers, a note for soft pointers, plot styles, extended
/// data and the reactors of images). Names of linetypes, styles, blocks and APPIDs defined; a note
/// for layers of entities and in styles of tables and multilines. 66 only with ATTRIB ... SEQEND,
/// and SEQEND owned by what it ends. Solids from AC1027 on have their geometry; a record of
/// geometry for nothing is a note. Subclass markers in order. No value that is no number where one
/// belongs (NaN and infinity are none), no NUL.
std::vector<Finding> checkDrawing(const Store& store);

/// Loads a file and checks it; what loading had to supply is reported first, as errors. Nothing,
/// with `error` filled, when it cannot be loaded.
std::optional<std::vector<Finding>> checkFile(const std::string& path, DxfError& error,
                                              const ProgressFunction& progress = {});

}  // namespace host
