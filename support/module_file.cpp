// File names of loaded modules, from Windows.
#include "module_file.h"

namespace {

/// Takes the longest path that Windows allows, with its end.
const DWORD kPathBufferLength = 32768;

std::wstring withoutFolder(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

std::wstring longForm(const std::wstring& path) {
    std::wstring text;
    text.resize(kPathBufferLength);
    text.resize(::GetLongPathNameW(path.c_str(), &text[0], kPathBufferLength));
    return text.empty() ? path : text;
}

}  // namespace

std::wstring modulePath(HMODULE hModule) {
    std::wstring path;
    path.resize(kPathBufferLength);
    path.resize(::GetModuleFileNameW(hModule, &path[0], kPathBufferLength));
    return path;
}

std::wstring moduleFileName(HMODULE hModule) {
    return withoutFolder(longForm(modulePath(hModule)));
}

std::wstring moduleName(HMODULE hModule) {
    const std::wstring file = withoutFolder(modulePath(hModule));
    return file.substr(0, file.rfind(L'.'));
}
