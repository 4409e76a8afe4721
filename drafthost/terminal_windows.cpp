// The terminal of Windows, whose console edits lines by itself.
#include "drafthost/terminal.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>

#include "drafthost/output.h"
#include "host/text/text_codec.h"

namespace {

volatile LONG interrupted = 0;

BOOL WINAPI onControl(DWORD event) {
    if (event != CTRL_C_EVENT) return FALSE;
    InterlockedExchange(&interrupted, 1);
    return TRUE;
}

class ConsoleTerminal : public Terminal {
  public:
    ConsoleTerminal() { SetConsoleCtrlHandler(onControl, TRUE); }
    void print(const std::wstring& text) override { writeOutput(host::toUtf8(text)); }
    bool stopRequested() const override { return interrupted != 0; }

  private:
    bool readLine(const std::wstring& prompt, host::InputUnit unit, std::wstring& line,
                  host::Answer& otherwise) override;
};

bool ConsoleTerminal::readLine(const std::wstring&, host::InputUnit, std::wstring& line,
                               host::Answer& otherwise) {
    flushOutput();
    wchar_t buffer[4096];
    DWORD length = 0;
    InterlockedExchange(&interrupted, 0);
    const BOOL read = ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), buffer,
                                   static_cast<DWORD>(std::size(buffer)), &length, nullptr);
    constexpr wchar_t kControlZ = 0x1A;
    const bool isEnd = !read || length == 0 || buffer[0] == kControlZ;
    otherwise.kind = interrupted != 0 ? host::Answer::Kind::Cancel : host::Answer::Kind::End;
    if (interrupted == 0 && !isEnd) line.assign(buffer, length);
    return !line.empty();
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

bool isInteractive() { return isConsole(STD_INPUT_HANDLE) && isConsole(STD_OUTPUT_HANDLE); }

bool standardErrorIsTerminal() { return isConsole(STD_ERROR_HANDLE); }

std::unique_ptr<Terminal> openTerminal() { return std::make_unique<ConsoleTerminal>(); }
