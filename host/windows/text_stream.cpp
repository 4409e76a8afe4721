// Appending Unicode text to files as Microsoft's C runtime does: UTF-16LE, byte-order mark, CR LF.
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/text/wide_format.h"
#include "host/windows/state.h"

namespace {

using namespace host;

void appendUnit(std::string& bytes, unsigned unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
}

std::string toUtf16(const std::wstring& text) {
    std::string bytes;
    for (const wchar_t character : text) {
        const auto given = static_cast<unsigned>(character);
        const unsigned code = given < 0x110000 ? given : 0xFFFD;
        if (code == L'\n') appendUnit(bytes, L'\r');
        if (code < 0x10000) {
            appendUnit(bytes, code);
        } else {
            appendUnit(bytes, 0xD800 + ((code - 0x10000) >> 10));
            appendUnit(bytes, 0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

bool writeBytes(std::FILE* stream, const std::string& bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
}

}  // namespace

std::FILE* _wfopen(const wchar_t* name, const wchar_t* mode) {
    errno = EINVAL;
    if (std::wstring(mode) != L"a+t, ccs=UNICODE") return nullptr;
    errno = EACCES;
    if (accessFails("_wfopen", name)) return nullptr;
    std::FILE* const stream = std::fopen(nativePath(name).c_str(), "abe");
    if (stream == nullptr) return nullptr;
    recordEffect(EffectKind::FileWrite, name);
    struct stat about = {};
    const bool empty = fstat(fileno(stream), &about) == 0 && about.st_size == 0;
    if (!empty || writeBytes(stream, "\xFF\xFE")) return stream;
    std::fclose(stream);
    return nullptr;
}

int fwprintf_s(std::FILE* stream, const wchar_t* format, ...) {
    if (callFails("fwprintf_s")) return -1;
    va_list arguments;
    va_start(arguments, format);
    const std::wstring text = formatWide(format, arguments);
    va_end(arguments);
    return writeBytes(stream, toUtf16(text)) ? static_cast<int>(text.size()) : -1;
}
