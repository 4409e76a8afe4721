// JSON that the program writes: one object for each drawing, described in docs/json.md.
#pragma once

#include <string>
#include <vector>

#include "drafthost/options.h"
#include "host/dxf/load/finding.h"
#include "inspection/inspection.h"

/// A drawing whose work came to nothing, as an element of what the options list: with all the keys
/// that a sound one has.
std::string errorJson(const Options& options, const std::string& file, const std::string& why);
/// The groups of one drawing; `why` it could not be read, or empty.
std::string groupsJson(const std::string& file, const inspection::Inspection& found,
                       const std::string& why = "");
/// One checked drawing; it is sound when none of the findings is an error.
std::string checkJson(const std::string& file, const std::vector<host::Finding>& findings,
                      bool sound);

/// A layer as the list has it.
struct ListedLayer {
    std::string name;
    long entities = 0;  ///< in all spaces
    long inGroups = 0;
    bool off = false, frozen = false, locked = false;
    bool defined = false;  ///< false when entities alone name it
};
std::string layersJson(const std::string& file, const std::vector<ListedLayer>& layers);
