// Ctrl+C of the console; jobs one after the other.
#include "drafthost/process.h"

#include <windows.h>

#include <utility>

#include "drafthost/output.h"

namespace {

volatile LONG interrupts = 0;

BOOL WINAPI onControl(DWORD event) {
    return event == CTRL_C_EVENT && InterlockedIncrement(&interrupts) == 1;
}

}  // namespace

void catchInterrupts() { SetConsoleCtrlHandler(onControl, TRUE); }

bool interruptRequested() { return interrupts != 0; }

int endingSignal() { return 0; }

void runJobs(std::size_t count, int, const std::function<int(std::size_t)>& work,
             const std::function<void(std::size_t)>& present,
             const std::function<void(std::size_t, JobResult)>& finished) {
    for (std::size_t i = 0; i < count && !interruptRequested(); ++i) {
        present(i);
        JobResult result;
        captureOutput(&result.output);
        result.status = work(i);
        captureOutput(nullptr);
        finished(i, std::move(result));
    }
}
