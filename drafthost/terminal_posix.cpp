// The terminal through libedit.
#include "drafthost/terminal.h"

#include <histedit.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <utility>

#include "drafthost/output.h"
#include "host/scripting/script.h"
#include "host/text/text_codec.h"

namespace {

volatile std::sig_atomic_t interrupted = 0;

void onInterrupt(int) { interrupted = 1; }

/// Ctrl+C while a command works counts at its next prompt. (While a line is edited it is a key.)
void catchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
}

class EditedTerminal : public Terminal {
  public:
    EditedTerminal()
        : m_editor(el_init("drafthost", stdin, stdout, stderr)), m_history(history_init()) {
        HistEvent event;
        history(m_history, &event, H_SETSIZE, 1000);
        history(m_history, &event, H_SETUNIQUE, 1);
        el_set(m_editor, EL_CLIENTDATA, this);
        el_set(m_editor, EL_PROMPT, promptOf);
        el_set(m_editor, EL_EDITOR, "emacs");
        el_set(m_editor, EL_SIGNAL, 0);
        el_set(m_editor, EL_HIST, history, m_history);
        el_source(m_editor, nullptr);
        // A key, not a signal: a signal between prompt and reading would be lost.
        el_set(m_editor, EL_SETTY, "-d", "-isig", nullptr);
        el_set(m_editor, EL_ADDFN, "drafthost-cancel", "Cancels the prompt", onCancelKey);
        el_set(m_editor, EL_BIND, "^C", "drafthost-cancel", nullptr);
        catchInterrupts();
    }
    ~EditedTerminal() override {
        writeOutput(m_open);
        el_end(m_editor);
        history_end(m_history);
    }
    EditedTerminal(const EditedTerminal&) = delete;
    EditedTerminal& operator=(const EditedTerminal&) = delete;

    host::Answer next(const std::wstring& prompt, host::InputUnit unit) override;
    bool interactive() const override { return true; }
    void print(const std::wstring& text) override;
    bool stopRequested() const override { return interrupted != 0; }

  private:
    static char* promptOf(EditLine* editor) {
        void* self = nullptr;
        el_get(editor, EL_CLIENTDATA, &self);
        return static_cast<EditedTerminal*>(self)->m_prompt.data();
    }
    static unsigned char onCancelKey(EditLine*, int) {
        interrupted = 1;
        return CC_EOF;
    }
    /// Reads a line; false when there is none, with the answer that stands for it.
    bool readLine(host::Answer& otherwise);

    EditLine* m_editor;
    History* m_history;
    std::string m_prompt;
    std::optional<host::ScriptSource> m_line;  ///< what is left of the typed line
    std::string m_open;                        ///< begin of a line: the editor prints it as prompt
    bool m_atLineBegin = true;                 ///< nothing was printed since a line was typed
};

bool EditedTerminal::readLine(host::Answer& otherwise) {
    int length = 0;
    flushOutput();
    m_prompt = std::exchange(m_open, {});
    // The editor prints its prompt before it takes the keys, so they are taken here first. Ctrl+C
    // pressed since the last answer counts: it was typed ahead.
    el_set(m_editor, EL_PREP_TERM, 1);
    const char* line = interrupted == 0 ? el_gets(m_editor, &length) : nullptr;
    m_atLineBegin = true;
    if (interrupted != 0) {
        interrupted = 0;
        el_reset(m_editor);
        m_atLineBegin = false;
        otherwise.kind = host::Answer::Kind::Cancel;
        return false;
    }
    if (line == nullptr || length <= 0) {
        writeOutput("\n");
        otherwise.kind = host::Answer::Kind::End;
        return false;
    }
    const std::string text(line, static_cast<std::size_t>(length));
    HistEvent event;
    if (text.find_first_not_of(" \t\r\n") != std::string::npos) {
        history(m_history, &event, H_ENTER, text.c_str());
    }
    m_line.emplace(host::fromUtf8(text));
    return true;
}

host::Answer EditedTerminal::next(const std::wstring& prompt, host::InputUnit unit) {
    if (!m_line || m_line->atEnd()) {
        if (m_open.empty()) m_open = host::toUtf8(prompt);
        host::Answer otherwise;
        if (!readLine(otherwise)) return otherwise;
    }
    const host::Answer answer = m_line->next({}, unit);
    // A typed line that holds no more than a comment is an empty answer.
    if (answer.kind == host::Answer::Kind::End) return {host::Answer::Kind::Enter, {}};
    return answer;
}

void EditedTerminal::print(const std::wstring& text) {
    std::string bytes = host::toUtf8(text);
    // Behind a typed line the cursor is at a line's begin already.
    if (m_atLineBegin && !bytes.empty() && bytes.front() == '\n') bytes.erase(0, 1);
    if (!bytes.empty()) m_atLineBegin = false;
    m_open += bytes;
    const std::size_t begin = m_open.rfind('\n') + 1;  // 0 without a line end
    writeOutput(m_open.substr(0, begin));
    m_open.erase(0, begin);
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

bool isInteractive() { return isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0; }

bool standardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

std::unique_ptr<Terminal> openTerminal() { return std::make_unique<EditedTerminal>(); }
