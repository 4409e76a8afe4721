// The terminal through libedit.
#include "drafthost/prompt/terminal.h"

#include <fcntl.h>
#include <histedit.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "drafthost/prompt/completion.h"
#include "drafthost/prompt/key_reader_posix.h"
#include "drafthost/system/output.h"
#include "drafthost/system/process.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace {

/// File that keeps the history; empty when the user has no place for it.
std::filesystem::path historyFile() {
    const char* const state = std::getenv("XDG_STATE_HOME");
    const bool given = state != nullptr && *state == '/';
    const std::string folder = given ? state : host::withHome("~/.local/state");
    return folder[0] == '/' ? std::filesystem::path(folder) / "drafthost/history"
                            : std::filesystem::path();
}

/// The history file, open; only a regular one under its own name: a link or a pipe in its place is
/// somebody else's.
class OpenHistory {
  public:
    explicit OpenHistory(int flags)
        : m_number(open(historyFile().c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600)) {
        struct stat status;
        if (m_number < 0 || (fstat(m_number, &status) == 0 && S_ISREG(status.st_mode))) return;
        close(std::exchange(m_number, -1));
    }
    ~OpenHistory() {
        if (m_number >= 0) close(m_number);
    }
    OpenHistory(const OpenHistory&) = delete;
    OpenHistory& operator=(const OpenHistory&) = delete;

    int number() const { return m_number; }
    int release() { return std::exchange(m_number, -1); }

  private:
    int m_number;
};

class EditedTerminal : public Terminal {
  public:
    EditedTerminal();
    ~EditedTerminal() override;
    EditedTerminal(const EditedTerminal&) = delete;
    EditedTerminal& operator=(const EditedTerminal&) = delete;

    void print(const std::wstring& text) override;
    bool gone() const override { return m_gone; }

  private:
    static EditedTerminal& of(EditLine* editor) {
        void* self = nullptr;
        el_get(editor, EL_CLIENTDATA, &self);
        return *static_cast<EditedTerminal*>(self);
    }
    static char* promptOf(EditLine* editor) { return of(editor).m_prompt.data(); }
    static int readKey(EditLine* editor, wchar_t* key) {
        EditedTerminal& self = of(editor);
        const int count = self.m_keys.next(*key);
        self.m_gone = count != 1 && !interruptRequested();
        return count;
    }
    static unsigned char onCancelKey(EditLine*, int) {
        requestInterrupt();
        return CC_EOF;
    }
    static unsigned char onTabKey(EditLine* editor, int key);
    bool readLine(const std::wstring& prompt, host::InputUnit unit, std::wstring& line,
                  host::Answer& otherwise) override;

    KeyReader m_keys{interruptRequested};
    EditLine* m_editor;
    History* m_history;
    std::string m_prompt;
    bool m_atEmptyPrompt = false;
    std::string m_open;         ///< begin of a line: the editor prints it as prompt
    bool m_atLineBegin = true;  ///< nothing was printed since a line was typed
    bool m_gone = false;        ///< the terminal, or the program is asked to end
};

EditedTerminal::EditedTerminal()
    : m_editor(el_init("drafthost", stdin, stdout, stderr)), m_history(history_init()) {
    HistEvent event;
    history(m_history, &event, H_SETSIZE, 1000);
    history(m_history, &event, H_SETUNIQUE, 1);
    if (const OpenHistory file(O_RDONLY); file.number() >= 0)
        history(m_history, &event, H_LOAD, ("/dev/fd/" + std::to_string(file.number())).c_str());
    el_set(m_editor, EL_CLIENTDATA, this);
    el_set(m_editor, EL_PROMPT, promptOf);
    el_set(m_editor, EL_EDITOR, "emacs");
    el_set(m_editor, EL_SIGNAL, 0);
    el_set(m_editor, EL_HIST, history, m_history);
    el_source(m_editor, nullptr);
    // A key, not a signal: a signal between prompt and reading would be lost.
    el_set(m_editor, EL_SETTY, "-d", "-isig", nullptr);
    el_set(m_editor, EL_GETCFN, readKey);
    for (const KeySequence* each = KeyReader::kSequences; each->keys != nullptr; ++each)
        el_set(m_editor, EL_BIND, each->keys, each->function, nullptr);
    el_set(m_editor, EL_ADDFN, "drafthost-cancel", "Cancels the prompt", onCancelKey);
    el_set(m_editor, EL_BIND, "^C", "drafthost-cancel", nullptr);
    el_set(m_editor, EL_ADDFN, "drafthost-complete", "Completes a name", onTabKey);
    el_set(m_editor, EL_BIND, "^I", "drafthost-complete", nullptr);
    // While a command works it is a signal, which counts at the next prompt.
    catchInterrupts(true);
}

EditedTerminal::~EditedTerminal() {
    writeOutput(m_open);
    HistEvent event;
    std::error_code ignored;  // without a place for it the history ends with the session
    std::filesystem::create_directories(historyFile().parent_path(), ignored);
    OpenHistory file(O_WRONLY | O_CREAT);
    std::FILE* const stream = file.number() >= 0 ? fdopen(file.number(), "w") : nullptr;
    if (stream != nullptr && ftruncate(file.release(), 0) == 0)
        history(m_history, &event, H_SAVE_FP, stream);
    if (stream != nullptr) std::fclose(stream);
    el_end(m_editor);
    history_end(m_history);
}

unsigned char EditedTerminal::onTabKey(EditLine* editor, int) {
    const LineInfo* line = el_line(editor);
    const std::string typed(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer));
    const Completion found = complete(typed, of(editor).m_atEmptyPrompt);
    if (!found.choices.empty()) {
        std::string all;
        for (const std::string& choice : found.choices)
            all += (all.empty() ? "" : "  ") + choice;
        writeOutput("\n" + all + "\n");
        flushOutput();
        return CC_REDISPLAY;
    }
    if (found.text.empty()) return CC_ERROR;
    const std::string replaced = typed.substr(typed.size() - found.length);
    el_deletestr(editor, static_cast<int>(host::fromUtf8(replaced).size()));
    el_insertstr(editor, found.text.c_str());
    return CC_REFRESH;
}

bool EditedTerminal::readLine(const std::wstring& prompt, host::InputUnit, std::wstring& line,
                              host::Answer& otherwise) {
    int length = 0;
    flushOutput();
    m_atEmptyPrompt = host::asksForCommand(prompt);
    m_prompt = m_open.empty() ? host::toUtf8(prompt) : std::exchange(m_open, {});
    // The editor prints its prompt before it takes the keys, so they are taken here first. Ctrl+C
    // pressed since the last answer counts: it was typed ahead.
    el_set(m_editor, EL_PREP_TERM, 1);
    const char* typed = !interruptRequested() ? el_gets(m_editor, &length) : nullptr;
    m_gone = m_gone || (typed == nullptr && endingSignal() != 0);
    m_atLineBegin = true;
    if (interruptRequested() && !m_gone) {
        forgetInterrupts();
        el_reset(m_editor);
        m_atLineBegin = false;
        otherwise.kind = host::Answer::Kind::Cancel;
        return false;
    }
    if (typed == nullptr || length <= 0) {
        writeOutput("\n");
        otherwise.kind = host::Answer::Kind::End;
        return false;
    }
    const std::string text(typed, static_cast<std::size_t>(length));
    HistEvent event;
    if (text.find_first_not_of(" \t\r\n") != std::string::npos)
        history(m_history, &event, H_ENTER, text.c_str());
    line = host::fromUtf8(text);
    return true;
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

std::unique_ptr<Terminal> openTerminal() { return std::make_unique<EditedTerminal>(); }
