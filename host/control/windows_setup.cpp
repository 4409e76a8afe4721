// Registry values of the usual types, stood in for or real.
#include "host/control/windows_setup.h"

#include <cstring>

namespace host {

bool setRegistryDword(const std::wstring& key, const std::wstring& name, std::uint32_t value) {
    constexpr std::uint32_t kDword = 4;
    std::vector<std::uint8_t> data(sizeof value);
    std::memcpy(data.data(), &value, sizeof value);
    return setRegistryValue(key, name, kDword, std::move(data));
}

bool setRegistryText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    constexpr std::uint32_t kText = 1;
    std::vector<std::uint8_t> data((text.size() + 1) * sizeof(wchar_t));
    std::memcpy(data.data(), text.c_str(), data.size());
    return setRegistryValue(key, name, kText, std::move(data));
}

}  // namespace host
