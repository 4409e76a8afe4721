// Checked writing, diagnostics and the progress line.
#include "drafthost/output.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "drafthost/process.h"

namespace {

bool outputClosed = false;
bool lineIsOpen = false;  ///< of standard output
bool failed = false;
std::string* captured = nullptr;

void noteFailure() {
    outputClosed = true;
    if (errno == EPIPE) return;
    failed = true;
    complain(std::string("standard output cannot be written: ") + std::strerror(errno));
}

}  // namespace

void captureOutput(std::string* text) { captured = text; }

void writeOutput(const std::string& text) {
    if (captured != nullptr) {
        captured->append(text);
        return;
    }
    if (outputClosed || text.empty()) return;
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) noteFailure();
    lineIsOpen = text.back() != '\n';
}

void flushOutput() {
    if (!outputClosed && std::fflush(stdout) != 0) noteFailure();
}

bool outputFailed() { return failed; }

void complain(const std::string& line) {
    if (!outputClosed) std::fflush(stdout);  // keeps the order where both go to one place
    const bool oneScreen = isInteractive() && standardErrorIsTerminal();
    std::fprintf(stderr, "%sdrafthost: %s\n", lineIsOpen && oneScreen ? "\n" : "", line.c_str());
    lineIsOpen = lineIsOpen && !oneScreen;
}

void writeErrors(const std::string& lines) {
    flushOutput();
    std::fwrite(lines.data(), 1, lines.size(), stderr);
}

void showStatus(const std::string& line) {
    static std::string shown;
    static const bool terminal = standardErrorIsTerminal();
    if (!terminal || line == shown) return;
    flushOutput();
    std::fprintf(stderr, "\r%-*s%s", static_cast<int>(shown.size()), line.c_str(),
                 line.empty() ? "\r" : "");
    std::fflush(stderr);
    shown = line;
}

bool showProgress(const char* what, int percent) {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point begin;
    static std::string task;
    static int last = -1;
    if (task != what || percent < last) {
        task = what;
        begin = Clock::now();
    }
    last = percent;
    const bool goesOn = !interruptRequested();
    if (percent >= 100 || !goesOn)
        showStatus("");
    else if (Clock::now() - begin >= std::chrono::seconds(1))
        showStatus(task + ": " + std::to_string(percent) + " %");
    return goesOn;
}
