// Reading of a module's version resource.
#include "version_resource.h"

#include <cwchar>
#include <vector>

#include "module_file.h"

namespace {

/// Language and code page, four digits each, and the end of the text.
const std::size_t kDigitsBufferLength = 9;

/// "\StringFileInfo\<language><code page>\" of the first translation; empty when there is none.
std::wstring stringTable(const void* block) {
    void* value = nullptr;
    UINT bytes = 0;
    wchar_t translationQuery[] = L"\\VarFileInfo\\Translation";
    if (!::VerQueryValueW(block, translationQuery, &value, &bytes) || bytes < 2 * sizeof(WORD)) {
        return std::wstring();
    }
    const WORD* const translation = static_cast<const WORD*>(value);
    wchar_t digits[kDigitsBufferLength] = {};
    std::swprintf(digits, kDigitsBufferLength, L"%04X%04X", static_cast<unsigned>(translation[0]),
                  static_cast<unsigned>(translation[1]));
    return std::wstring(L"\\StringFileInfo\\") + digits + L"\\";
}

}  // namespace

std::wstring versionString(HMODULE hModule, const wchar_t* name) {
    const std::wstring file = modulePath(hModule);
    std::vector<BYTE> block(::GetFileVersionInfoSizeW(file.c_str(), NULL));
    const DWORD size = static_cast<DWORD>(block.size());
    if (!::GetFileVersionInfoW(file.c_str(), 0, size, block.data())) return std::wstring();
    const std::wstring table = stringTable(block.data());
    void* value = nullptr;
    UINT characters = 0;
    if (table.empty() ||
        !::VerQueryValueW(block.data(), (table + name).c_str(), &value, &characters)) {
        return std::wstring();
    }
    const std::wstring text(static_cast<const wchar_t*>(value), characters);
    return text.substr(0, text.find(L'\0'));
}
