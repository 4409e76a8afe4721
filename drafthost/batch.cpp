// The same work for each of several drawings: order of the output, progress and summary.
#include "drafthost/batch.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <map>
#include <new>
#include <utility>
#include <vector>

#include "drafthost/reports/json_text.h"
#include "drafthost/system/output.h"
#include "drafthost/system/process.h"

namespace {

/// What a status says of one drawing.
std::string wordsFor(int status, const Options& options) {
    switch (status) {
        case kUsage:
            return "an option is wrong";
        case kUnwritable:
            return "cannot be written";
        case kDamaged:
            return options.check ? "damaged" : "a group is not whole";
        default:
            return options.script.empty() ? "not done" : "its script failed";
    }
}

/// Keeps the results that come before their turn, and counts.
class Summary {
  public:
    explicit Summary(const Options& options) : m_options(options) {}

    /// Shows how far the run is, once it has taken over a second; `number` is the one begun last.
    void showProgress(std::size_t number) const;
    void take(std::size_t number, JobResult result);
    /// The lines in the end; gives the exit status.
    int conclude();

  private:
    void show(std::size_t number, JobResult result);
    std::string howMany() const;

    const Options& m_options;
    std::map<std::size_t, JobResult> m_waiting;
    std::size_t m_next = 0;  ///< whose turn it is
    std::size_t m_done = 0;
    std::size_t m_failed = 0;
    std::vector<std::string> m_failures;
    bool m_listed = false;  ///< the list of JSON has an element
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    int m_status = kDone;
};

std::string Summary::howMany() const {
    const std::size_t count = m_options.files.size();
    const std::string of = m_done < count ? std::to_string(m_done) + " of " : "";
    return of + std::to_string(count) + " drawings, " +
           (m_failed == 0 ? "none" : std::to_string(m_failed)) + " failed";
}

void Summary::showProgress(std::size_t number) const {
    const bool early = std::chrono::steady_clock::now() - m_start < std::chrono::seconds(1);
    if (!early) showStatus(howMany() + "; " + m_options.files[number]);
}

void Summary::take(std::size_t number, JobResult result) {
    const int status = result.status;
    if (status != kInterrupted) ++m_done;
    m_status = std::max(m_status, status);
    m_failed += status != kDone && status != kInterrupted ? 1 : 0;
    showStatus("");
    m_waiting.emplace(number, std::move(result));
    // Where Ctrl+C has left gaps, `conclude` shows what stands behind them.
    for (auto at = m_waiting.begin(); at != m_waiting.end() && at->first == m_next; ++m_next) {
        show(at->first, std::move(at->second));
        at = m_waiting.erase(at);
    }
}

void Summary::show(std::size_t number, JobResult result) {
    const std::string& file = m_options.files[number];
    if (m_options.json && !result.ending.empty())
        result.output = errorJson(m_options, file, result.ending);
    if (!m_options.script.empty() && !m_options.quiet) writeOutput("== " + file + "\n");
    if (m_options.json && m_listed && !result.output.empty()) writeOutput(",\n");
    m_listed = m_listed || !result.output.empty();
    writeOutput(result.output);
    writeErrors(result.errors);
    if (result.status == kDone || result.status == kInterrupted) return;
    const bool ended = result.ending.empty();
    if (ended && result.status == kUnreadable) return;  // its own line has said so
    m_failures.push_back(file + ": " +
                         (ended ? wordsFor(result.status, m_options) : result.ending));
}

int Summary::conclude() {
    showStatus("");
    for (auto& [number, result] : m_waiting)
        show(number, std::move(result));
    for (const std::string& line : m_failures)
        complain("failed: " + line);
    complain((interruptRequested() ? "interrupted: " : "") + howMany());
    return interruptRequested() ? kInterrupted : m_status;
}

}  // namespace

int runBatch(const Options& options, const std::function<int(const std::string& file)>& work,
             const Settle& settle) {
    const auto guarded = [&](std::size_t number) {
        const std::string& file = options.files[number];
        try {
            const int status = interruptRequested() ? static_cast<int>(kInterrupted) : work(file);
            return interruptRequested() && status != kDone ? static_cast<int>(kInterrupted)
                                                           : status;
        } catch (const std::bad_alloc&) {
            complain(file + ": out of memory");
        } catch (const std::exception& failure) {
            complain(file + ": " + failure.what());
        }
        return static_cast<int>(kFailed);
    };
    if (options.json) writeOutput("[\n");
    int status = kDone;
    if (options.files.size() == 1) {
        status = guarded(0);
        const std::string line = settle ? settle(options.files[0], status) : "";
        if (!line.empty()) complain(line);
    } else {
        Summary summary(options);
        const auto finished = [&](std::size_t number, JobResult result) {
            const std::string line = settle ? settle(options.files[number], result.status) : "";
            if (!line.empty()) result.errors += "drafthost: " + line + "\n";
            summary.take(number, std::move(result));
        };
        runJobs(
            options.files.size(), options.jobs, guarded,
            [&](std::size_t number) { summary.showProgress(number); }, finished);
        status = summary.conclude();
    }
    if (options.json) writeOutput("\n]\n");
    return status;
}
