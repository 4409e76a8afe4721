// Library of an address, by the dynamic linker.
#include <dlfcn.h>

#include "host/editor/state/caller_name.h"
#include "host/text/text_codec.h"

namespace host {

std::wstring libraryNameAt(const void* address) {
    Dl_info info = {};
    if (dladdr(address, &info) == 0 || info.dli_fname == nullptr) return L"unknown";
    const std::wstring path = fromUtf8(info.dli_fname);
    return path.substr(path.find_last_of(L'/') + 1);
}

}  // namespace host
