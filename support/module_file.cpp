// File names of loaded modules, from Windows.
#include "module_file.h"

namespace {

std::wstring withoutFolder(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

std::wstring longForm(const std::wstring& path) {
    const DWORD needed = ::GetLongPathNameW(path.c_str(), NULL, 0);
    std::wstring text(needed, L'\0');
    const DWORD length = needed == 0 ? 0 : ::GetLongPathNameW(path.c_str(), &text[0], needed);
    if (length == 0 || length >= needed) return path;
    text.resize(length);
    return text;
}

}  // namespace

std::wstring modulePath(HMODULE hModule) {
    // Windows cuts a path that does not fit, and allows at most this many characters.
    constexpr DWORD longest = 32768;
    for (DWORD size = MAX_PATH; size <= 2 * longest; size *= 2) {
        std::wstring path(size, L'\0');
        const DWORD length = ::GetModuleFileNameW(hModule, &path[0], size);
        if (length >= size) continue;
        path.resize(length);
        return path;
    }
    return std::wstring();
}

std::wstring moduleFileName(HMODULE hModule) {
    return withoutFolder(longForm(modulePath(hModule)));
}

std::wstring moduleName(HMODULE hModule) {
    const std::wstring file = withoutFolder(modulePath(hModule));
    return file.substr(0, file.rfind(L'.'));
}
