// libFuzzer target: the script language and the commands that scripts run.
#include <string_view>

#include "application/script_trial.h"
#include "fuzz_support.h"

int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const fuzz::Folder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    fuzz::expectNone(faultOfScript(bytes, folder.path()));
    return 0;
}
