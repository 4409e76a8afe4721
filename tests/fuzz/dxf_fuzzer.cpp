// libFuzzer target: the DXF reader, the check and the writer.
#include <string_view>

#include "common/drawing_trial.h"
#include "common/scratch.h"
#include "fuzz_support.h"

int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const tests::ScratchFolder folder;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    fuzz::expectNone(trial::tryDrawing(text, folder.path().string()).fault);
    return 0;
}
