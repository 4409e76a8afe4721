// The state of the stood-in Windows, its control side and the shared helpers.
#include "host/windows/state.h"

#include <algorithm>
#include <cerrno>
#include <cwctype>

#include "host/control/faults.h"
#include "module/version.h"

namespace host {
namespace {

#define WIDE_LITERAL(text) L##text
#define WIDE(text) WIDE_LITERAL(text)

thread_local DWORD lastError = ERROR_SUCCESS;

bool isCharacter(std::uint32_t code) { return code < 0x110000 && (code < 0xD800 || code > 0xDFFF); }

}  // namespace

WindowsState::WindowsState()
    : version({WIDE(VELMO_COMPANY_NAME), WIDE(VELMO_PRODUCT_NAME), WIDE(VELMO_FILE_VERSION)}) {}

WindowsState& windowsState() {
    static WindowsState instance;
    return instance;
}

void resetWindows() { windowsState() = WindowsState(); }

void setDebuggerPresent(bool present) { windowsState().debuggerPresent = present; }

long breakpointsHit() { return windowsState().breakpoints; }

void setEnvironment(const std::wstring& name, std::optional<std::wstring> value) {
    windowsState().environment[name] = std::move(value);
}

void setModuleFileName(const void* module, const std::wstring& path) {
    windowsState().moduleFiles[module] = path;
}

void lockFile(const std::wstring& path, long attempts) {
    windowsState().lockedFile = nativePath(path.c_str());
    windowsState().lockedAttempts = attempts;
}

void setWorkstationStart(std::optional<std::time_t> moment) {
    windowsState().workstationStart = moment;
}

void setVersionResource(std::optional<VersionResource> resource) {
    windowsState().version = std::move(resource);
}

std::string toUtf8(const std::wstring& text) {
    std::string bytes;
    for (const wchar_t unit : text) {
        const auto given = static_cast<std::uint32_t>(unit);
        const std::uint32_t code = isCharacter(given) ? given : 0xFFFD;
        if (code < 0x80) {
            bytes += static_cast<char>(code);
            continue;
        }
        const int following = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        const int lead = following == 1 ? 0xC0 : following == 2 ? 0xE0 : 0xF0;
        bytes += static_cast<char>(lead | (code >> (6 * following)));
        for (int i = following - 1; i >= 0; --i) {
            bytes += static_cast<char>(0x80 | ((code >> (6 * i)) & 0x3F));
        }
    }
    return bytes;
}

std::wstring fromUtf8(const std::string& bytes) {
    std::wstring text;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at++]);
        const int following = lead < 0x80   ? 0
                              : lead < 0xC0 ? -1
                              : lead < 0xE0 ? 1
                              : lead < 0xF0 ? 2
                                            : 3;
        std::uint32_t code = following <= 0 ? lead : lead & (0x3F >> following);
        int seen = 0;
        while (seen < following && at < bytes.size() && (bytes[at] & 0xC0) == 0x80) {
            code = (code << 6) | (bytes[at++] & 0x3F);
            ++seen;
        }
        text += static_cast<wchar_t>(seen == following && isCharacter(code) ? code : 0xFFFD);
    }
    return text;
}

std::wstring lowerCase(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
    return text;
}

std::string nativePath(LPCWSTR path) {
    std::string bytes = toUtf8(path != nullptr ? path : L"");
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return bytes;
}

int failWith(DWORD error) {
    lastError = error;
    return 0;
}

DWORD errorFromErrno(int number) {
    switch (number) {
        case ENOENT:
            return ERROR_FILE_NOT_FOUND;
        case ENOTDIR:
            return ERROR_PATH_NOT_FOUND;
        case EACCES:
        case EPERM:
        case EISDIR:
        case EROFS:
            return ERROR_ACCESS_DENIED;
        case EEXIST:
            return ERROR_ALREADY_EXISTS;
        default:
            return ERROR_GEN_FAILURE;
    }
}

bool accessFails(const char* call, LPCWSTR path) {
    if (callFails(call)) return failWith(ERROR_GEN_FAILURE), true;
    WindowsState& state = windowsState();
    if (state.lockedAttempts <= 0 || nativePath(path) != state.lockedFile) return false;
    --state.lockedAttempts;
    return failWith(ERROR_SHARING_VIOLATION), true;
}

DWORD giveText(const std::wstring& text, LPWSTR buffer, DWORD size) {
    const auto length = static_cast<DWORD>(text.size());
    if (size <= length) return length + 1;
    std::wmemcpy(buffer, text.c_str(), length + 1);
    return length;
}

}  // namespace host

DWORD GetLastError() { return host::lastError; }
