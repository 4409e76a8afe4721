// Loaded modules: their files, the call stack, and the version resource.
#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "host/control/faults.h"
#include "host/windows/state.h"

namespace {

using namespace host;

constexpr wchar_t kTranslationQuery[] = L"\\VarFileInfo\\Translation";
constexpr wchar_t kStringQuery[] = L"\\StringFileInfo\\040904B0\\";
/// Language and code page that kStringQuery names: US English, Unicode.
constexpr WORD kTranslation[2] = {0x0409, 0x04B0};

std::wstring realPath(const char* path) {
    char* const real = realpath(path, nullptr);
    const std::wstring text = fromUtf8(real != nullptr ? real : path);
    std::free(real);
    return text;
}

/// Empty for an address that is no loaded module.
std::wstring moduleFile(HMODULE module) {
    const auto& overrides = windowsState().moduleFiles;
    if (const auto found = overrides.find(module); found != overrides.end()) return found->second;
    if (module == nullptr) return realPath("/proc/self/exe");
    Dl_info about = {};
    if (dladdr(module, &about) == 0 || about.dli_fbase != module) return std::wstring();
    return realPath(about.dli_fname);
}

/// The block: the translation, then name and value in turn, each ended by a null.
std::wstring versionStrings(const VersionResource& version) {
    const std::pair<const wchar_t*, const std::wstring&> strings[] = {
        {L"CompanyName", version.companyName},
        {L"ProductName", version.productName},
        {L"FileVersion", version.fileVersion}};
    std::wstring block;
    for (const auto& [name, value] : strings)
        block += name + (L'\0' + value) + L'\0';
    return block + L'\0';
}

}  // namespace

DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size) {
    if (callFails("GetModuleFileNameW")) return failWith(ERROR_GEN_FAILURE);
    const std::wstring path = moduleFile(module);
    if (path.empty()) return failWith(ERROR_INVALID_HANDLE);
    if (size == 0) return failWith(ERROR_INSUFFICIENT_BUFFER);
    const std::size_t length = std::min<std::size_t>(path.size(), size - 1);
    std::wmemcpy(buffer, path.c_str(), length);
    buffer[length] = L'\0';
    if (length == path.size()) return static_cast<DWORD>(length);
    failWith(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

BOOL GetModuleHandleExW(DWORD flags, LPCWSTR address, HMODULE* module) {
    *module = nullptr;
    Dl_info about = {};
    if (callFails("GetModuleHandleExW") || (flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS) == 0 ||
        dladdr(address, &about) == 0) {
        return failWith(ERROR_INVALID_PARAMETER);
    }
    *module = static_cast<HMODULE>(about.dli_fbase);
    return TRUE;
}

WORD RtlCaptureStackBackTrace(DWORD skip, DWORD count, PVOID* frames, PDWORD hash) {
    if (hash != nullptr) *hash = 0;
    std::vector<void*> all(skip + 1 + count);
    const int found = backtrace(all.data(), static_cast<int>(all.size()));
    const int first = static_cast<int>(skip) + 1;  // without this function itself
    if (found <= first) return 0;
    std::copy(all.begin() + first, all.begin() + found, frames);
    return static_cast<WORD>(found - first);
}

DWORD GetFileVersionInfoSizeW(LPCWSTR file, LPDWORD handle) {
    if (handle != nullptr) *handle = 0;
    const std::optional<VersionResource>& version = windowsState().version;
    if (callFails("GetFileVersionInfoSizeW") || !version || *file == L'\0') {
        return failWith(ERROR_RESOURCE_DATA_NOT_FOUND);
    }
    return static_cast<DWORD>((versionStrings(*version).size() + 1) * sizeof(wchar_t));
}

BOOL GetFileVersionInfoW(LPCWSTR, DWORD, DWORD size, LPVOID block) {
    const std::optional<VersionResource>& version = windowsState().version;
    if (callFails("GetFileVersionInfoW") || !version) {
        return failWith(ERROR_RESOURCE_DATA_NOT_FOUND);
    }
    const std::wstring strings = versionStrings(*version);
    const std::size_t bytes = strings.size() * sizeof(wchar_t);
    if (size < bytes + sizeof kTranslation) return failWith(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(block, kTranslation, sizeof kTranslation);
    std::memcpy(static_cast<char*>(block) + sizeof kTranslation, strings.data(), bytes);
    return TRUE;
}

BOOL VerQueryValueW(LPCVOID block, LPCWSTR what, LPVOID* value, PUINT length) {
    static_assert(sizeof kTranslation == sizeof(wchar_t), "the strings have to start aligned");
    if (callFails("VerQueryValueW")) return failWith(ERROR_GEN_FAILURE);
    auto* const start = static_cast<wchar_t*>(const_cast<void*>(block));
    if (_wcsicmp(what, kTranslationQuery) == 0) {
        *value = start;
        *length = sizeof kTranslation;
        return TRUE;
    }
    const std::wstring query = what;
    const std::size_t prefix = std::wcslen(kStringQuery);
    if (lowerCase(query.substr(0, prefix)) != lowerCase(kStringQuery)) {
        return failWith(ERROR_RESOURCE_DATA_NOT_FOUND);
    }
    for (wchar_t* name = start + 1; *name != L'\0';) {
        wchar_t* const text = name + std::wcslen(name) + 1;
        if (_wcsicmp(name, query.c_str() + prefix) == 0) {
            *value = text;
            *length = static_cast<UINT>(std::wcslen(text) + 1);
            return TRUE;
        }
        name = text + std::wcslen(text) + 1;
    }
    return failWith(ERROR_RESOURCE_DATA_NOT_FOUND);
}
