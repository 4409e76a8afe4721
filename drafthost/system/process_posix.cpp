// Arguments, streams, Ctrl+C as a signal; jobs in child processes, whose output comes through
// pipes.
#include "drafthost/system/process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <list>
#include <utility>
#include <vector>

#include "drafthost/options.h"
#include "drafthost/system/output.h"

namespace {

volatile std::sig_atomic_t interrupts = 0;
/// A process with children ends them before itself; at the prompt nothing is ended.
volatile std::sig_atomic_t outlives = 0;

volatile std::sig_atomic_t ending = 0;

void onInterrupt(int signal) {
    if (signal != SIGINT) ending = signal;
    // A session that ends sends two signals at once; only the second Ctrl+C is impatience.
    if (signal != SIGINT && interrupts > 0) return;
    requestInterrupt();
    if (interrupts > 1 && outlives == 0) _exit(kInterrupted);
}

/// The reading end of a pipe into a child; closed on destruction.
class Pipe {
  public:
    Pipe() = default;
    ~Pipe() {
        closeEnd(m_reading);
        closeEnd(m_writing);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool open() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) return false;
        m_reading = ends[0];
        m_writing = ends[1];
        return true;
    }
    /// In the child: what is written to `stream` goes into the pipe.
    void takeOver(int stream) const { dup2(m_writing, stream); }
    void closeWriting() { closeEnd(m_writing); }
    int reading() const { return m_reading; }
    /// Appends what has come; at the end the pipe is closed.
    void readInto(std::string& text) {
        char buffer[65536];
        const ssize_t count = read(m_reading, buffer, sizeof buffer);
        if (count > 0)
            text.append(buffer, static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            closeEnd(m_reading);
    }

  private:
    static void closeEnd(int& end) {
        if (end >= 0) close(end);
        end = -1;
    }

    int m_reading = -1;
    int m_writing = -1;
};

struct Child {
    std::size_t number = 0;
    pid_t process = -1;
    Pipe output, errors;
    JobResult result = {};

    bool silent() const { return output.reading() < 0 && errors.reading() < 0; }
};

/// The jobs under way.
class Jobs {
  public:
    using Work = std::function<int(std::size_t)>;
    using Finished = std::function<void(std::size_t, JobResult)>;

    Jobs(const Work& work, const Finished& finished) : m_work(work), m_finished(finished) {
        outlives = 1;
    }
    ~Jobs() { outlives = 0; }
    Jobs(const Jobs&) = delete;
    Jobs& operator=(const Jobs&) = delete;

    std::size_t count() const { return m_children.size(); }
    void start(std::size_t number);
    /// Waits for output, takes it, and hands over what has ended.
    void wait();

  private:
    [[noreturn]] void work(const Child& child) const;
    void passInterruptsOn();
    void end(Child& child);

    const Work& m_work;
    const Finished& m_finished;
    std::list<Child> m_children;
    int m_passedOn = 0;
};

void Jobs::work(const Child& child) const {
    // A group of its own: the terminal's Ctrl+C comes through the parent alone, and so once.
    setpgid(0, 0);
    outlives = 0;
    child.output.takeOver(STDOUT_FILENO);
    child.errors.takeOver(STDERR_FILENO);
    const int status = m_work(child.number);
    flushOutput();
    _exit(status);  // what the parent has set up is the parent's to take down
}

void Jobs::start(std::size_t number) {
    Child& child = m_children.emplace_back();
    child.number = number;
    flushOutput();
    const bool open = child.output.open() && child.errors.open();
    child.process = open ? fork() : -1;
    if (child.process == 0) work(child);
    if (child.process < 0) {
        JobResult result;
        result.status = kFailed;
        result.ending = std::string("no process can be started: ") + std::strerror(errno);
        m_children.pop_back();
        return m_finished(number, std::move(result));
    }
    child.output.closeWriting();
    child.errors.closeWriting();
}

void Jobs::passInterruptsOn() {
    if (m_passedOn == interrupts) return;
    const int signal = m_passedOn == 0 ? SIGINT : SIGKILL;
    m_passedOn = interrupts;
    for (const Child& child : m_children)
        kill(child.process, signal);
}

void Jobs::end(Child& child) {
    int status = 0;
    while (waitpid(child.process, &status, 0) < 0 && errno == EINTR) {
    }
    child.result.status = WIFEXITED(status) ? WEXITSTATUS(status) : static_cast<int>(kFailed);
    if (WIFSIGNALED(status)) {
        child.result.ending =
            std::string("its process ended by a signal: ") + strsignal(WTERMSIG(status));
    }
    m_finished(child.number, std::move(child.result));
}

void Jobs::wait() {
    constexpr int kLongest = 250;  // milliseconds until an interrupt is seen that came just before
    std::vector<pollfd> ends;
    for (const Child& child : m_children) {
        ends.push_back({child.output.reading(), POLLIN, 0});
        ends.push_back({child.errors.reading(), POLLIN, 0});
    }
    const bool ready = poll(ends.data(), ends.size(), kLongest) > 0;
    passInterruptsOn();
    if (!ready) return;
    auto end = ends.begin();
    for (auto child = m_children.begin(); child != m_children.end();) {
        if ((end++)->revents != 0) child->output.readInto(child->result.output);
        if ((end++)->revents != 0) child->errors.readInto(child->result.errors);
        const auto now = child++;
        if (!now->silent()) continue;
        this->end(*now);
        m_children.erase(now);
    }
}

}  // namespace

std::vector<std::string> programArguments(int count, char** values) {
    return count > 0 ? std::vector<std::string>(values + 1, values + count)
                     : std::vector<std::string>();
}

std::string programFolder() {
    std::error_code failure;
    const auto file = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? std::string() : file.parent_path().string() + "/";
}

void prepareStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    // Character classes only: numbers keep their point.
    if (std::setlocale(LC_CTYPE, "") == nullptr) std::setlocale(LC_CTYPE, "C.UTF-8");
}

bool standardInputIsTerminal() { return isatty(STDIN_FILENO) != 0; }

bool isInteractive() { return standardInputIsTerminal() && isatty(STDOUT_FILENO) != 0; }

bool standardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

void catchInterrupts(bool atPrompt) {
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = atPrompt ? 0 : SA_RESTART;
    outlives = atPrompt ? 1 : 0;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    struct sigaction former = {};
    sigaction(SIGHUP, nullptr, &former);
    if (former.sa_handler != SIG_IGN) sigaction(SIGHUP, &action, nullptr);
}

bool interruptRequested() { return interrupts != 0 || ending != 0; }

void requestInterrupt() { interrupts = interrupts + 1; }

void forgetInterrupts() { interrupts = 0; }

int endingSignal() { return ending; }

void runJobs(std::size_t count, int atATime, const std::function<int(std::size_t)>& work,
             const std::function<void(std::size_t)>& present,
             const std::function<void(std::size_t, JobResult)>& finished) {
    Jobs jobs(work, finished);
    for (std::size_t next = 0; next < count || jobs.count() > 0;) {
        while (next < count && jobs.count() < static_cast<std::size_t>(atATime) &&
               !interruptRequested())
            jobs.start(next++);
        if (jobs.count() == 0) break;
        present(next - 1);
        jobs.wait();
    }
}
