// Loading a drawing for a report.
#pragma once

#include <memory>
#include <string>

#include "drafthost/options.h"
#include "host/objectarx/database.h"

/// Loads a drawing; null when it cannot be read, with a line printed and, where the options want
/// JSON, the object that says so.
std::unique_ptr<AcDbDatabase> loadForReading(const Options& options, const std::string& file);
