// Checked writing, diagnostics and the progress line.
#include "drafthost/system/output.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "drafthost/system/process.h"

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

void endLine() {
    if (lineIsOpen) writeOutput("\n");
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
    constexpr std::size_t kWidest = 79;  // a longer line would wrap and stay
    static std::string shown;
    static std::size_t width = 0;
    static const bool terminal = standardErrorIsTerminal();
    if (!terminal || line == shown) return;
    std::size_t columns = 0, end = 0;
    for (; end < line.size(); ++end) {
        const bool begins = (line[end] & 0xC0) != 0x80;
        if (begins && columns == kWidest) break;
        columns += begins ? 1 : 0;
    }
    flushOutput();
    const int rest = static_cast<int>(width > columns ? width - columns : 0);
    std::fprintf(stderr, "\r%s%*s%s", line.substr(0, end).c_str(), rest, "",
                 line.empty() ? "\r" : "");
    std::fflush(stderr);
    shown = line;
    width = columns;
}

bool showProgress(const std::string& what, double done) {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point begin;
    static std::string task;
    static int last = -1;
    const int percent = static_cast<int>(done * 100.0);
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
