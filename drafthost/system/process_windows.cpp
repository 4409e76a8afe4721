// Arguments, streams, Ctrl+C of the console; jobs one after the other.
#include "drafthost/system/process.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <utility>

#include "drafthost/system/output.h"
#include "host/text/text_codec.h"

namespace {

volatile LONG interrupts = 0;
volatile LONG outlives = 0;  ///< at the prompt

BOOL WINAPI onControl(DWORD event) {
    return event == CTRL_C_EVENT && (InterlockedIncrement(&interrupts) == 1 || outlives != 0);
}

bool isConsole(DWORD which) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(which), &mode) != 0;
}

}  // namespace

std::vector<std::string> programArguments(int, char**) {
    int count = 0;
    LPWSTR* values = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; values != nullptr && i < count; ++i)
        arguments.push_back(host::toUtf8(values[i]));
    LocalFree(values);
    return arguments;
}

std::string programFolder() {
    wchar_t buffer[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, buffer, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return {};
    const std::string path = host::toUtf8(std::wstring(buffer, length));
    return path.substr(0, path.find_last_of("\\/") + 1);
}

void prepareStreams() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    _setmode(_fileno(stdin), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

bool standardInputIsTerminal() { return isConsole(STD_INPUT_HANDLE); }

bool isInteractive() { return standardInputIsTerminal() && isConsole(STD_OUTPUT_HANDLE); }

bool standardErrorIsTerminal() { return isConsole(STD_ERROR_HANDLE); }

void catchInterrupts(bool atPrompt) {
    InterlockedExchange(&outlives, atPrompt ? 1 : 0);
    SetConsoleCtrlHandler(onControl, TRUE);
}

bool interruptRequested() { return interrupts != 0; }

void requestInterrupt() { InterlockedIncrement(&interrupts); }

void forgetInterrupts() { InterlockedExchange(&interrupts, 0); }

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
