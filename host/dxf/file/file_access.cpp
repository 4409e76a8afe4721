// Files over the standard library, and the faults that tests bend into them.
#include "host/dxf/file/file_access.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <vector>

#include "host/dxf/file/native_files.h"
#include "host/text/paths.h"

namespace host {
namespace {

std::atomic<long> failingCall{0};
std::atomic<long> callCount{0};
std::atomic<FileFault> faultOfCall{FileFault::DiskFull};

/// True when nothing failed, else false with the reason: in the same words on every system, where
/// its error has a match.
bool succeeded(const std::error_code& failure, std::string& why) {
    if (!failure) return true;
    const std::error_condition condition = failure.default_error_condition();
    why = condition.category() == std::generic_category()
              ? condition.message()
              : "system error " + std::to_string(failure.value());
    return false;
}

/// The same for a call of the C library that tells its failure in errno.
bool succeeded(bool done, std::string& why) {
    return done || succeeded(std::error_code(errno, std::generic_category()), why);
}

bool writeAll(std::FILE* file, std::string_view bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

/// Counts a changing call; true, with a reason, when it has to fail, in a write behind the first
/// `half` of its bytes. Does not come back when the process has to end.
bool fails(std::string& why, std::FILE* file = nullptr, std::string_view half = {}) {
    if (++callCount != failingCall) return false;
    if (!half.empty() && writeAll(file, half)) std::fflush(file);
    if (faultOfCall == FileFault::ProcessEnds) std::_Exit(kKilledStatus);
    why = "No space left on device";
    return true;
}

/// Copies by reading and writing; what came about by then stays when that fails.
bool copyFile(const std::string& from, const std::string& to, std::string& why) {
    InputFile input;
    OutputFile output;
    if (!input.open(from, why) || !output.create(to, why)) return false;
    std::vector<char> buffer(1 << 16);
    long count = 0;
    while ((count = input.read(buffer.data(), buffer.size(), why)) > 0) {
        if (!output.write({buffer.data(), static_cast<std::size_t>(count)}, why)) return false;
    }
    return count == 0 && output.takePermissionsOf(from, why) && output.flushToDisk(why) &&
           output.close(why);
}

}  // namespace

FilePlace placeOf(const std::string& path) {
    using std::filesystem::file_type;
    std::error_code ignored;
    switch (std::filesystem::status(pathFromUtf8(path), ignored).type()) {
        case file_type::regular:
            return FilePlace::File;
        case file_type::directory:
            return FilePlace::Folder;
        case file_type::not_found:
        case file_type::none:
        case file_type::unknown:
            return FilePlace::None;
        default:
            return FilePlace::Other;
    }
}

bool InputFile::open(const std::string& path, std::string& why, Readable which) {
    constexpr const char* kNotRegular = "Is not a regular file";
    const bool streams = which == Readable::Streams;
    // Before it is opened: the opening of a pipe would wait for a writer.
    const FilePlace place = placeOf(path);
    if (place == FilePlace::Folder || (place == FilePlace::Other && !streams)) {
        why = place == FilePlace::Folder ? "Is a directory" : kNotRegular;
        return false;
    }
    m_file.reset(native::openFile(pathFromUtf8(path)));
    if (!succeeded(m_file != nullptr, why)) return false;
    if (!native::isRegular(m_file.get())) {
        if (!streams) why = kNotRegular;
        return streams;
    }
    std::error_code failure;
    m_size = std::filesystem::file_size(pathFromUtf8(path), failure);
    return succeeded(failure, why);
}

void InputFile::openText(std::string_view text) {
    m_text = text;
    m_size = text.size();
}

long InputFile::read(char* buffer, std::size_t size, std::string& why) {
    if (m_file == nullptr) {
        const std::size_t count = m_text.copy(buffer, size);
        m_text.remove_prefix(count);
        return static_cast<long>(count);
    }
    const std::size_t count = std::fread(buffer, 1, size, m_file.get());
    return succeeded(std::ferror(m_file.get()) == 0, why) ? static_cast<long>(count) : -1;
}

bool OutputFile::create(const std::string& path, std::string& why) {
    if (fails(why)) return false;
    m_file.reset(native::createFile(pathFromUtf8(path)));
    return succeeded(m_file != nullptr, why);
}

bool OutputFile::takePermissionsOf(const std::string& path, std::string& why) {
    if (fails(why)) return false;
    return succeeded(native::copyPermissions(pathFromUtf8(path), m_file.get()), why);
}

bool OutputFile::write(std::string_view bytes, std::string& why) {
    if (fails(why, m_file.get(), bytes.substr(0, bytes.size() / 2))) return false;
    return succeeded(writeAll(m_file.get(), bytes), why);
}

bool OutputFile::flushToDisk(std::string& why) {
    return !fails(why) && succeeded(native::flushToDisk(m_file.get()), why);
}

bool OutputFile::close(std::string& why) {
    return !fails(why) && succeeded(std::fclose(m_file.release()) == 0, why);
}

std::string folderPart(const std::string& path) {
    const std::size_t name = utf8OfPath(pathFromUtf8(path).filename()).size();
    return path.substr(0, path.size() - name);
}

bool renameOver(const std::string& from, const std::string& to, std::string& why) {
    return !fails(why) && succeeded(native::renameOver(pathFromUtf8(from), pathFromUtf8(to)), why);
}

bool duplicateFile(const std::string& from, const std::string& to, std::string& why) {
    if (fails(why)) return false;
    std::error_code failure;
    std::filesystem::create_hard_link(pathFromUtf8(from), pathFromUtf8(to), failure);
    if (!failure) return true;
    return copyFile(from, to, why);  // a file system without hard links
}

void removeFile(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove(pathFromUtf8(path), ignored);
}

bool flushFolderOf(const std::string& path, std::string& why) {
    if (fails(why)) return false;
    const std::string folder = folderPart(path);
    return succeeded(native::flushFolder(pathFromUtf8(folder.empty() ? "." : folder)), why);
}

void setFileFault(long failAt, FileFault fault) {
    failingCall = failAt;
    faultOfCall = fault;
    callCount = 0;
}

}  // namespace host
