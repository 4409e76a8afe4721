// libFuzzer target: the script language and the commands that scripts run.
#include <string_view>

#include "application/script_trial.h"
#include "common/scratch.h"
#include "fuzz_support.h"

int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const tests::ScratchFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    fuzz::expectNone(faultOfScript(bytes, folder.path().string()));
    return 0;
}
