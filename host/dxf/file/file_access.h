// The file calls that loading and saving make. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace host {

/// What stands at a path; links are followed.
enum class FilePlace { None, File, Folder, Other };  // None: or out of reach
FilePlace placeOf(const std::string& path);

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// A regular file open for reading, or text in memory. Closed on destruction.
class InputFile {
  public:
    /// False with the reason in `why`: missing, not readable, a folder, a device.
    bool open(const std::string& path, std::string& why);
    /// Reads `text`, which has to outlive this, as if a file held it.
    void openText(std::string_view text);
    /// Bytes read, 0 at the end, -1 on failure. The file may grow or shrink meanwhile.
    long read(char* buffer, std::size_t size, std::string& why);
    /// Size in bytes when it was opened.
    std::uint64_t size() const { return m_size; }

  private:
    FileHandle m_file;
    std::string_view m_text;
    std::uint64_t m_size = 0;
};

/// A new file open for writing. Closed on destruction; not removed.
class OutputFile {
  public:
    /// Creates a file that was not there before.
    bool create(const std::string& path, std::string& why);
    /// Gives the file the owner, permissions and extended attributes of another one, as far as the
    /// user may and the file system has them.
    bool takePermissionsOf(const std::string& path, std::string& why);
    bool write(std::string_view bytes, std::string& why);
    /// Waits until everything written is on the disk.
    bool flushToDisk(std::string& why);
    bool close(std::string& why);

  private:
    FileHandle m_file;
};

/// The part of a path up to its last separator, inclusive; empty for a bare name.
std::string folderPart(const std::string& path);
/// True when the user may write to the file.
bool isWritable(const std::string& path);
/// The file that a path means after following symbolic links, also when it does not exist yet.
std::string withoutLinks(const std::string& path);
/// Renames, replacing what stands at `to`. Atomic.
bool renameOver(const std::string& from, const std::string& to, std::string& why);
/// Makes a second name for a file, or a copy where the file system knows no hard links.
bool duplicateFile(const std::string& from, const std::string& to, std::string& why);
void removeFile(const std::string& path);
/// Makes the renames in the folder of `path` last through a power cut.
bool flushFolderOf(const std::string& path, std::string& why);
/// Identification of this process, for names of temporary files; true while one is running.
unsigned long processNumber();
bool processLives(unsigned long number);
/// What tells one file from another under whatever name; empty when nothing stands there.
std::string fileIdentity(const std::string& path);
/// True when the file has further names (hard links), which a save does not change.
bool hasOtherNames(const std::string& path);

/// How a changing call fails. In both cases a write has put half of its bytes into the file before.
enum class FileFault {
    DiskFull,    ///< the call reports that no space is left
    ProcessEnds  ///< the process ends at the call, as if it was killed, with kKilledStatus
};
inline constexpr int kKilledStatus = 99;

/// For tests: makes the `failAt`-th of the changing calls above (create, takePermissionsOf, write,
/// flushToDisk, close, renameOver, duplicateFile, flushFolderOf; counted from 1 since this call)
/// fail; 0 lets all pass.
void setFileFault(long failAt, FileFault fault = FileFault::DiskFull);

}  // namespace host
