// What the file calls have in common on every platform.
#include "host/dxf/file/file_access.h"

#include <atomic>
#include <cstdlib>
#include <vector>

namespace host {
namespace {

std::atomic<long> failingCall{0};
std::atomic<long> callCount{0};
std::atomic<FileFault> faultOfCall{FileFault::DiskFull};

}  // namespace

void setFileFault(long failAt, FileFault fault) {
    failingCall = failAt;
    faultOfCall = fault;
    callCount = 0;
}

long fileCallCount() { return callCount; }

bool fileCallFails(std::string& why) {
    return fileWriteFails(why, [] {});
}

bool fileWriteFails(std::string& why, const std::function<void()>& writeHalf) {
    if (++callCount != failingCall) return false;
    writeHalf();
    if (faultOfCall == FileFault::ProcessEnds) std::_Exit(kKilledStatus);
    why = "No space left on device";
    return true;
}

bool copyFile(const std::string& from, const std::string& to, std::string& why) {
    InputFile input;
    OutputFile output;
    if (!input.open(from, why) || !output.create(to, why)) return false;
    std::vector<char> buffer(1 << 16);
    for (;;) {
        const long count = input.read(buffer.data(), buffer.size(), why);
        if (count < 0) return false;
        if (count == 0) break;
        const std::string_view bytes(buffer.data(), static_cast<std::size_t>(count));
        if (!output.write(bytes, why)) return false;
    }
    return output.takePermissionsOf(from, why) && output.flushToDisk(why) && output.close(why);
}

}  // namespace host
