// The values that are set up in either Windows, over its setRegistryValue.
#include "host/control/windows_setup.h"

#include "module/version.h"

namespace host {
namespace {

constexpr std::uint32_t kText = 1;    // REG_SZ
constexpr std::uint32_t kNumber = 4;  // REG_DWORD

bool setBytes(const std::wstring& key, const std::wstring& name, std::uint32_t type,
              const void* bytes, std::size_t size) {
    const auto* const first = static_cast<const std::uint8_t*>(bytes);
    return setRegistryValue(key, name, type, {first, first + size});
}

}  // namespace

bool setRegistryDword(const std::wstring& key, const std::wstring& name, std::uint32_t value) {
    return setBytes(key, name, kNumber, &value, sizeof value);
}

bool setRegistryText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    return setBytes(key, name, kText, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

std::wstring moduleRegistryKey() {
    const std::string key = "HKCU\\Software\\" VELMO_COMPANY_NAME "\\" VELMO_PRODUCT_NAME;
    return {key.begin(), key.end()};  // both names are ASCII
}

}  // namespace host
