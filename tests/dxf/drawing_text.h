// A small sound drawing as text, with ways to damage it, and files to load and save it.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "common/checks.h"
#include "common/scratch.h"
#include "common/tag_literals.h"
#include "host/dxf/check/drawing_check.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/load/load_drawing.h"
#include "host/dxf/save/save_drawing.h"

namespace tests {

/// Every kind of structure once, as a literal; the check finds nothing in it.
extern const std::string kDrawing;

/// DXF text of a drawing so large that a save takes several writes.
std::string largeDrawing();

/// A part of a drawing, what replaces it, and what the host tells of that.
struct Damage {
    const char *part, *replacement, *told;
};

/// A folder of its own for each test.
class DrawingFiles : public testing::Test {
  protected:
    ~DrawingFiles() override { host::setFileFault(0); }

    std::string path(const std::string& name) const { return m_folder.file(name); }
    std::string write(const std::string& name, const std::string& text) const {
        tests::write(path(name), text);
        return path(name);
    }
    std::string read(const std::string& name) const { return tests::contentOf(path(name)); }
    /// Names of all files in the folder, sorted, parted by blanks.
    std::string listing() const;
    /// Loads DXF text; the test fails when that fails.
    std::unique_ptr<host::Store> load(const std::string& text) const;
    /// The one-line error of loading DXF text, without the folder.
    std::string loadError(const std::string& text) const;
    /// DXF text of a saved store.
    std::string saved(host::Store& store) const;
    /// Texts of all findings in DXF text, one a line; notes begin with "note: ".
    std::string findings(const std::string& text) const;

  private:
    ScratchFolder m_folder;
};

}  // namespace tests
