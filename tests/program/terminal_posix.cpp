// The program at a terminal (prompt, line editing, Ctrl+C and Ctrl+D) and at an output that fails.
#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include "program_fixture.h"

namespace {

constexpr char kControlC = 3;
constexpr char kControlD = 4;

/// A program at a pseudo-terminal.
class AtTerminal {
  public:
    /// `state` is the folder of what lasts from session to session.
    explicit AtTerminal(const std::string& state) {
        m_child = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_child != 0) return;
        setenv("TERM", "dumb", 1);
        setenv("XDG_STATE_HOME", state.c_str(), 1);
        execl(DRAFTHOST_FILE, "drafthost", "--no-module", nullptr);
        _exit(127);
    }
    ~AtTerminal() { close(m_terminal); }

    /// Reads until `text` has come since the last call; false when it does not come in time.
    bool shows(const std::string& text) {
        constexpr int kLongest = 20000;  // milliseconds
        for (char buffer[512]; m_seen.find(text) == std::string::npos;) {
            pollfd terminal = {m_terminal, POLLIN, 0};
            const bool ready = poll(&terminal, 1, kLongest) > 0;
            const ssize_t count = ready ? read(m_terminal, buffer, sizeof buffer) : 0;
            if (count > 0) {
                m_seen.append(buffer, static_cast<std::size_t>(count));
                continue;
            }
            ADD_FAILURE() << "no \"" << text << "\" in: " << m_seen;
            return false;
        }
        m_seen.erase(0, m_seen.find(text) + text.size());
        return true;
    }
    void type(const std::string& text) {
        EXPECT_EQ(write(m_terminal, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    int status() {
        int result = -1;
        waitpid(m_child, &result, 0);
        return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
    }

  private:
    int m_terminal = -1;
    pid_t m_child = -1;
    std::string m_seen;
};

using TerminalTest = ProgramTest;

TEST_F(TerminalTest, CommandsCancelAndLeave) {
    AtTerminal terminal("/nowhere");
    ASSERT_TRUE(terminal.shows("Drawing1.dxf; ? lists the commands"));
    ASSERT_TRUE(terminal.shows("Command: "));
    terminal.type("LINE 0,0\n");
    ASSERT_TRUE(terminal.shows("Specify next point: "));
    terminal.type("nonsense\n");
    ASSERT_TRUE(terminal.shows("is no point"));
    ASSERT_TRUE(terminal.shows("Specify next point: "));
    terminal.type("1,1\n");
    ASSERT_TRUE(terminal.shows("[Undo]: "));
    terminal.type(std::string(1, kControlC));
    ASSERT_TRUE(terminal.shows("*Cancel*"));
    ASSERT_TRUE(terminal.shows("Command: "));
    terminal.type("PICK ALL\nPICKED \n");
    ASSERT_TRUE(terminal.shows(" LINE"));
    ASSERT_TRUE(terminal.shows("Command: "));  // before it Ctrl+D would belong to the system
    terminal.type(std::string(1, kControlD));
    ASSERT_TRUE(terminal.shows("Save the changes to Drawing1.dxf? [Yes/No/Cancel] <Yes>: "));
    terminal.type("c\n");
    ASSERT_TRUE(terminal.shows("Command: "));
    terminal.type("QUIT n\n");
    EXPECT_EQ(terminal.status(), 0);
}

TEST_F(TerminalTest, EscTabAndTheHistory) {
    const std::string state = std::filesystem::current_path().string();
    {
        AtTerminal terminal(state);
        ASSERT_TRUE(terminal.shows("Command: "));
        terminal.type("CIRC\t\n");
        ASSERT_TRUE(terminal.shows("center point"));
        terminal.type("\033");
        ASSERT_TRUE(terminal.shows("*Cancel*"));
        ASSERT_TRUE(terminal.shows("Command: "));
        terminal.type("xREGEN\033[1~\033[15~\033[3~\n");  // Home, F5, Delete
        ASSERT_TRUE(terminal.shows("Regenerating model."));
        ASSERT_TRUE(terminal.shows("Command: "));
        terminal.type("\n");
        ASSERT_TRUE(terminal.shows("Regenerating model."));
        ASSERT_TRUE(terminal.shows("Command: "));
        terminal.type("QUIT\n");
        EXPECT_EQ(terminal.status(), 0);
    }
    AtTerminal terminal(state);
    ASSERT_TRUE(terminal.shows("Command: "));
    terminal.type("\033[A\033[A\n");
    ASSERT_TRUE(terminal.shows("Regenerating model."));
    ASSERT_TRUE(terminal.shows("Command: "));  // before it Ctrl+D would belong to the system
    terminal.type(std::string(1, kControlD));
    EXPECT_EQ(terminal.status(), 0);
}

TEST_F(ProgramTest, OutputThatCannotBeWritten) {
    const std::string help = "\"" DRAFTHOST_FILE "\" --help";
    const std::string closed =
        "{ sleep 0.3; " + help + " 2>errors; echo $? >status; } | true; sleep 1";
    ASSERT_EQ(std::system(closed.c_str()), 0);
    EXPECT_EQ(contentOf("status") + contentOf("errors"), "0\n");
    const std::string full = help + " >/dev/full 2>errors; echo $? >status";
    ASSERT_EQ(std::system(full.c_str()), 0);
    EXPECT_EQ(contentOf("status") + contentOf("errors"),
              "1\ndrafthost: standard output cannot be written: No space left on device\n");
}

}  // namespace
