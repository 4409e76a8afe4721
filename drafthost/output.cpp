// Checked writing, diagnostics and the progress line.
#include "drafthost/output.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "drafthost/process.h"
#include "drafthost/terminal.h"

namespace {

bool outputClosed = false;
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
}

void flushOutput() {
    if (!outputClosed && std::fflush(stdout) != 0) noteFailure();
}

bool outputFailed() { return failed; }

void complain(const std::string& line) {
    if (!outputClosed) std::fflush(stdout);  // keeps the order where both go to one place
    std::fprintf(stderr, "drafthost: %s\n", line.c_str());
}

void writeErrors(const std::string& lines) {
    flushOutput();
    std::fwrite(lines.data(), 1, lines.size(), stderr);
}

void showStatus(const std::string& line) {
    static std::string shown;
    static const bool terminal = standardErrorIsTerminal();
    if (!terminal || line == shown) return;
    if (line.empty()) {
        std::fprintf(stderr, "\r%*s\r", static_cast<int>(shown.size()), "");
    } else {
        flushOutput();
        std::fprintf(stderr, "\r%s", line.c_str());
    }
    std::fflush(stderr);
    shown = line;
}

bool showProgress(const char* what, int percent) {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point begin;
    static std::string shown;
    static int last = -1;
    static const bool terminal = standardErrorIsTerminal();
    if (!terminal) return !interruptRequested();
    if (shown != what || percent < last) {
        shown = what;
        begin = Clock::now();
        last = -1;
    }
    if (percent == last || Clock::now() - begin < std::chrono::seconds(1))
        return !interruptRequested();
    last = percent;
    if (percent < 100) {
        std::fprintf(stderr, "\r%s: %d %%", what, percent);
    } else {
        std::fprintf(stderr, "\r%*s\r", static_cast<int>(shown.size()) + 8, "");
    }
    std::fflush(stderr);
    return !interruptRequested();
}
