// The values that are set up in either Windows, over its setRegistryValue.
#include "host/control/windows_setup.h"

#include "module/version.h"

namespace host {

bool setRegistryDword(const std::wstring& key, const std::wstring& name, std::uint32_t value) {
    constexpr std::uint32_t kNumber = 4;  // REG_DWORD
    const auto* const first = reinterpret_cast<const std::uint8_t*>(&value);
    return setRegistryValue(key, name, kNumber, {first, first + sizeof value});
}

std::wstring moduleRegistryKey() {
    const std::string key = "HKCU\\Software\\" VELMO_COMPANY_NAME "\\" VELMO_PRODUCT_NAME;
    return {key.begin(), key.end()};  // both names are ASCII
}

}  // namespace host
