// The text of a drawing, section by section, into a file.
#pragma once

#include <string>
#include <string_view>

#include "host/dxf/file/file_access.h"
#include "host/dxf/file/progress.h"
#include "host/dxf/save/erased_references.h"
#include "host/store/store.h"

namespace host {

/// Writes a drawing with one copy of each object's text, a megabyte at a time.
class DrawingWriter {
  public:
    DrawingWriter(Store& store, OutputFile& file, const ProgressFunction& progress);
    /// False with the reason in `why`; a value that no reader would take is one.
    bool write(std::string& why);
    /// True when it was such a value, which elsewhere could not be written either.
    bool refusedValue() const { return m_refusedValue; }

  private:
    void writeSection(const Section& section);
    void writeDataRecords();
    void writeTables();
    void writeBlocks();
    void writeEntities();
    void writeChildren(Index parent);
    void writeEntity(const ObjectBody& entity);
    void writeObject(const ObjectBody& body);
    void append(std::string_view text);
    void refuseLongValues(std::string_view text, const std::string& holder);
    void appendWithCrLf(std::string_view text);
    void flush();

    Store& m_store;
    OutputFile& m_file;
    const ProgressFunction& m_progress;
    ErasedReferences m_references;
    std::string m_pending;  ///< not yet written
    Index m_written = 0;    ///< objects so far
    bool m_failed = false;
    bool m_refusedValue = false;
    std::string m_why;
};

}  // namespace host
